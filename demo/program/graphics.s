; The tiles and colours of a room, loaded into the picture memory while the screen is off.

.include "console.inc"
.include "layout.inc"

.segment "BSS"

load_list:    .res 2
load_index:   .res 1
load_bank:    .res 1
load_tiles:   .res 1
block:        .res 1
background:   .res 2
mirrored:     .res 1

.segment "CODE"

load_room_graphics:
    jsr clear_tiles
    lda room
    jsr load_listed_tiles
    jsr load_background
    lda #PALETTE_BANK
    jsr set_bank
    lda #<PALETTE_TABLE
    ldx #>PALETTE_TABLE
    jsr word_at_room
    sta pointer
    stx pointer + 1
    jmp write_palette

; The overworld's tiles go over those of the room.
load_overworld_graphics:
    lda #OVERWORLD_ENTRY
    jsr load_listed_tiles
    lda #OVERWORLD_BANK
    jsr set_bank
    lda #<MAP_PALETTES
    sta pointer
    lda #>MAP_PALETTES
    sta pointer + 1
    jmp write_palette

clear_tiles:
    lda #0
    sta PPU_ADDRESS
    sta PPU_ADDRESS
    ldx #32
    tay
@byte:
    sta PPU_DATA
    iny
    bne @byte
    dex
    bne @byte
    rts

; ---------------------------------------------------------------------------------------------
; Load lists: record numbers, ended by a byte of $80 or more

; Does all loads of the list of entry A.
load_listed_tiles:
    ldx room
    stx load_index
    sta room
    lda #UNIT_BANK
    jsr set_bank
    lda #<LOAD_TABLE
    ldx #>LOAD_TABLE
    jsr word_at_room
    sta load_list
    stx load_list + 1
    lda load_index
    sta room
    lda #0
    sta load_index
@record:
    lda #UNIT_BANK
    jsr set_bank
    lda load_list
    sta pointer
    lda load_list + 1
    sta pointer + 1
    ldy load_index
    lda (pointer),y
    bmi @done
    jsr load_record
    inc load_index
    bne @record
@done:
    rts

; Record A: source (low, high; from the start of the graphics banks, on into the next one),
; destination in the picture memory (high, low), number of tiles. What would go past the pattern
; tables is left out.
load_record:
    sta temp
    ldy #0
    sty temp + 1
    asl a
    rol temp + 1
    asl a
    rol temp + 1
    adc temp
    sta pointer
    lda temp + 1
    adc #>LOAD_RECORDS
    sta pointer + 1
    lda #LOAD_RECORD_BANK
    jsr set_bank
    ldy #0
    lda (pointer),y
    sta temp
    iny
    lda (pointer),y
    sta temp + 1
    iny
    lda (pointer),y
    sta temp + 2
    sta PPU_ADDRESS
    iny
    lda (pointer),y
    sta temp + 3
    sta PPU_ADDRESS
    iny
    lda (pointer),y
    beq @done
    sta load_tiles
    lda temp
    sta pointer
    lda temp + 1
    and #$3F
    ora #$80
    sta pointer + 1
    lda temp + 1
    rol a ; its two highest bits count banks
    rol a
    rol a
    and #3
    clc
    adc #GRAPHICS_BANK
    sta load_bank
    jsr set_bank
@tile:
    ldx #16
@byte:
    lda temp + 2
    cmp #$20
    bcs @done
    ldy #0
    lda (pointer),y
    sta PPU_DATA
    inc temp + 3
    bne @source
    inc temp + 2
@source:
    inc pointer
    bne @next
    inc pointer + 1
    lda pointer + 1
    cmp #$C0
    bne @next
    lda #$80
    sta pointer + 1
    inc load_bank
    lda load_bank
    jsr set_bank
@next:
    dex
    bne @byte
    dec load_tiles
    bne @tile
@done:
    rts

; ---------------------------------------------------------------------------------------------
; Background: 64 blocks of four tiles, each from any of four banks, some of them mirrored

load_background:
    lda #$10
    sta PPU_ADDRESS
    lda #0
    sta PPU_ADDRESS
    sta block
    lda #BACKGROUND_BANK
    jsr set_bank
    lda #<BACKGROUND_TABLE
    ldx #>BACKGROUND_TABLE
    jsr word_at_room
    sta background
    stx background + 1
@block:
    jsr load_block
    inc block
    lda block
    cmp #64
    bne @block
    rts

load_block:
    lda background
    sta pointer
    lda background + 1
    sta pointer + 1
    lda #BACKGROUND_BANK
    jsr set_bank
    ldy block
    lda (pointer),y
    sta temp ; the block's number
    tya
    lsr a
    php
    ora #64
    tay
    lda (pointer),y
    plp
    bcs @low ; the attributes of two blocks share a byte
    lsr a
    lsr a
    lsr a
    lsr a
@low:
    tax
    and #4
    sta mirrored
    lda temp ; x 64
    lsr a
    sta pointer + 1
    lda #0
    ror a
    lsr pointer + 1
    ror a
    sta pointer
    lda pointer + 1
    ora #$80
    sta pointer + 1
    txa
    and #3
    clc
    adc #TILE_BANK
    jsr set_bank
    ldy #0
    lda mirrored
    bne @mirrored
@plain:
    lda (pointer),y
    sta PPU_DATA
    iny
    cpy #64
    bne @plain
    rts
@mirrored: ; the right column first, each byte from right to left
    ldy #32
@column:
    lda (pointer),y
    ldx #8
@bit:
    lsr a
    rol temp
    dex
    bne @bit
    lda temp
    sta PPU_DATA
    iny
    tya
    and #31
    bne @column
    cpy #64
    bne @done
    ldy #0
    beq @column
@done:
    rts
