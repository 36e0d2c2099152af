; Units and the hero as sprites.

.include "console.inc"
.include "layout.inc"

.segment "ZEROPAGE"

sprite_x:    .res 2 ; the sprite's position in the picture, column
sprite_y:    .res 2 ; line - 1, as the console counts lines of sprites
sprite_next: .res 1 ; place in OAM for the next piece; from the end to the front
sprite_full: .res 1
script:      .res 2
unit:        .res 2
units_left:  .res 1
pieces:      .res 1

.segment "BSS"

; Where the animation of each unit type with sprites stands.
animation_low:    .res SPRITE_TYPES
animation_high:   .res SPRITE_TYPES
animation_offset: .res SPRITE_TYPES
animation_delay:  .res SPRITE_TYPES

.segment "CODE"

; ---------------------------------------------------------------------------------------------
; Animation. A frame: number of pieces, four bytes for each, then its duration in ticks; with bit
; 7 set the address of the next frame follows.

reset_animation:
    lda #SCRIPT_BANK
    jsr set_bank
    ldx #SPRITE_TYPES - 1
@type:
    lda script_low,x
    sta animation_low,x
    lda script_high,x
    sta animation_high,x
    lda #0
    sta animation_offset,x
    jsr take_delay
    dex
    bpl @type
    rts

step_animation:
    lda #SCRIPT_BANK
    jsr set_bank
    ldx #SPRITE_TYPES - 1
@type:
    lda sprite_register,x
    cmp #1
    bne @next
    dec animation_delay,x
    bne @next
    jsr next_frame
@next:
    dex
    bpl @type
    rts

; Points script at the frame of type X.
find_frame:
    lda animation_low,x
    clc
    adc animation_offset,x
    sta script
    lda animation_high,x
    adc #0
    sta script + 1
    rts

; Points script at what follows the pieces of the frame of type X.
find_control:
    jsr find_frame
    ldy #0
    lda (script),y
    sta temp
    lda #0
    asl temp
    rol a
    asl temp
    rol a
    tay
    lda script
    sec
    adc temp
    sta script
    tya
    adc script + 1
    sta script + 1
    rts

next_frame:
    jsr find_control
    ldy #0
    lda (script),y
    bmi @jump
    ; the next frame follows
    lda script
    sec
    sbc animation_low,x
    clc
    adc #1
    sta animation_offset,x
    jmp take_delay
@jump:
    iny
    lda (script),y
    sta animation_low,x
    iny
    lda (script),y
    sta animation_high,x
    lda #0
    sta animation_offset,x
    ; goes on below

take_delay:
    jsr find_control
    ldy #0
    lda (script),y
    and #$7F
    sta animation_delay,x
    rts

; ---------------------------------------------------------------------------------------------

clear_sprites:
    lda #$FF ; below the picture
    ldx #0
@sprite:
    sta OAM,x
    inx
    inx
    inx
    inx
    bne @sprite
    lda #$FC
    sta sprite_next
    lda #0
    sta sprite_full
    rts

; What is drawn later covers what was drawn before, so OAM is filled from its end: the console puts
; its first sprites in front.
draw_units:
    lda units_pointer
    sta unit
    lda units_pointer + 1
    sta unit + 1
    lda #MOST_UNITS
    sta units_left
@unit:
    lda #UNIT_BANK
    jsr set_bank
    ldy #0
    lda (unit),y
    cmp #$FF
    beq @done
    cmp #SPRITE_TYPES
    bcs @next
    tax
    lda sprite_register,x
    beq @next
    ldy #2
    lda (unit),y
    beq @next ; without a placement
    jsr find_unit
    jsr find_frame
    jsr draw_frame
@next:
    lda unit
    clc
    adc #5
    sta unit
    bcc @same
    inc unit + 1
@same:
    dec units_left
    bne @unit
@done:
    rts

; Sets sprite_x and sprite_y from the unit's record: type, x, screen column + 1, y, screen row.
; Keeps X.
find_unit:
    lda (unit),y ; Y is 2
    sec
    sbc #1
    sta temp + 1
    dey
    lda (unit),y
    sec
    sbc camera_x
    sta sprite_x
    lda temp + 1
    sbc camera_x + 1
    sta sprite_x + 1
    ldy #4
    lda (unit),y
    jsr rows_to_lines
    ldy #3
    lda temp
    clc
    adc (unit),y
    sta temp
    bcc @same
    inc temp + 1
@same:
    lda temp
    sec
    sbc camera_y
    sta sprite_y
    lda temp + 1
    sbc camera_y + 1
    sta sprite_y + 1
    rts

; The hero stands still and holds the lantern. His position is a unit's.
draw_hero:
    lda hero_x
    sec
    sbc camera_x
    sta sprite_x
    lda hero_x + 1
    sbc camera_x + 1
    sta sprite_x + 1
    lda hero_y
    sec
    sbc camera_y
    sta sprite_y
    lda hero_y + 1
    sbc camera_y + 1
    sta sprite_y + 1
    lda #<HERO_SCRIPT
    sta script
    lda #>HERO_SCRIPT
    sta script + 1
    ; goes on below

; Draws the pieces of the frame at script: tile, column and line (signed, from the position),
; attributes.
draw_frame:
    lda #SCRIPT_BANK
    jsr set_bank
    ldy #0
    lda (script),y
    beq @done
    sta pieces
@piece:
    ldy #1
    lda (script),y
    sta temp ; tile
    iny
    lda (script),y
    sta temp + 1
    iny
    lda (script),y
    sta temp + 2
    iny
    lda (script),y
    and #$C3 ; mirrored, upside down, colours
    sta temp + 3
    jsr add_sprite
    lda script
    clc
    adc #4
    sta script
    bcc @same
    inc script + 1
@same:
    dec pieces
    bne @piece
@done:
    rts

; Adds the tile temp, with the attributes temp + 3, at the position plus (temp + 1, temp + 2), both
; signed, if that is wholly in the picture from its left and upper edge on.
add_sprite:
    lda sprite_full
    bne @done
    ldx #0
    lda temp + 1
    bpl @right
    dex
@right:
    clc
    adc sprite_x
    sta temp + 1
    txa
    adc sprite_x + 1
    bne @done
    ldx #0
    lda temp + 2
    bpl @down
    dex
@down:
    clc
    adc sprite_y
    sta temp + 2
    txa
    adc sprite_y + 1
    bne @done
    lda temp + 2
    cmp #239
    bcs @done
    ldx sprite_next
    sta OAM,x
    lda temp
    sta OAM + 1,x
    lda temp + 3
    sta OAM + 2,x
    lda temp + 1
    sta OAM + 3,x
    txa
    sec
    sbc #4
    sta sprite_next
    bcs @done
    inc sprite_full
@done:
    rts

.segment "RODATA"

.include "units.inc"
