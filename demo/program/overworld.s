; The overworld: its picture, the areas' icons, and the carts on their routes.

.include "console.inc"
.include "layout.inc"

MAP_COLUMN   = 3 ; the map lies three tiles inside the nametable
MAP_ROW      = 3
CART_QUADS   = 8 ; quad sprites 8 to 15: a cart facing each of the eight directions
CART_SPEED   = 2 ; frames for a pixel
CART_REST    = 60 ; frames before the carts set out
LEG          = 16 ; pixels that a cart drives before it may stop
LAST_PHASE   = $80

.segment "BSS"

cart_x:      .res CARTS ; as the areas' positions are stored, which is where they are in the picture
cart_y:      .res CARTS
cart_phase:  .res CARTS ; place in the patterns' data
cart_way:    .res CARTS ; pixels of the leg still to go
cart_timer:  .res 1
cart_rest:   .res 1
cart:        .res 1

.segment "CODE"

enter_overworld:
    lda #0
    sta settled
    jsr screen_off
    jsr clear_sprites
    jsr load_overworld_graphics ; the overworld's bank stays chosen
    jsr draw_map
    jsr draw_attributes
    jsr draw_icons
    ldx #CARTS - 1
@cart:
    jsr start_route
    dex
    bpl @cart
    lda #0
    sta scroll_x
    sta scroll_y
    sta scroll_table
    sta queue_start
    sta queue_end
    sta cart_timer
    lda #CART_REST
    sta cart_rest
    lda #1
    sta overworld
    jmp screen_on

overworld_frame:
    lda pad_pressed
    and #PAD_SELECT
    beq @stay
    jmp load_room
@stay:
    lda #OVERWORLD_BANK
    jsr set_bank
    lda cart_rest
    beq @drive
    dec cart_rest
    bne @stand
@drive:
    inc cart_timer
    lda cart_timer
    cmp #CART_SPEED
    bcc @stand
    lda #0
    sta cart_timer
    jsr drive_carts
@stand:
    jsr clear_sprites
    lda shown
    cmp #SHOWN_MAP
    beq @done
    jsr draw_carts
@done:
    lda #1
    sta settled
    rts

; ---------------------------------------------------------------------------------------------
; The picture

; The map's first tile, which is the sea, goes all around it.
draw_map:
    lda #$20
    sta PPU_ADDRESS
    lda #0
    sta PPU_ADDRESS
    lda MAP_TILES
    ldx #30
@row:
    ldy #32
@column:
    sta PPU_DATA
    dey
    bne @column
    dex
    bne @row
    lda #<MAP_TILES
    sta pointer
    lda #>MAP_TILES
    sta pointer + 1
    ldx #MAP_ROW
@map_row:
    ldy #MAP_COLUMN
    jsr set_cell
    ldy #0
@map_column:
    lda (pointer),y
    sta PPU_DATA
    iny
    cpy #MAP_COLUMNS
    bne @map_column
    lda pointer
    clc
    adc #MAP_COLUMNS
    sta pointer
    bcc @same
    inc pointer + 1
@same:
    inx
    cpx #MAP_ROW + MAP_ROWS
    bne @map_row
    rts

; The address of row X, column Y of the nametable.
set_cell:
    txa
    lsr a
    lsr a
    lsr a
    ora #$20
    sta PPU_ADDRESS
    txa
    asl a
    asl a
    asl a
    asl a
    asl a
    sta temp
    tya
    ora temp
    sta PPU_ADDRESS
    rts

draw_attributes:
    lda #$23
    sta PPU_ADDRESS
    lda #$C0
    sta PPU_ADDRESS
    ldx #0
@byte:
    lda MAP_ATTRIBUTES,x
    sta PPU_DATA
    inx
    cpx #64
    bne @byte
    rts

; Icons are parts of the map: 2 x 2 tiles around each area's position, in column order.
draw_icons:
    ldy #0
@area:
    sty temp + 1
    tya
    asl a
    tay
    lda AREA_POSITIONS,y
    sec
    sbc #8
    lsr a
    lsr a
    lsr a
    cmp #31
    bcs @next ; off the picture
    sta temp + 2
    lda AREA_POSITIONS + 1,y
    sec
    sbc #8
    lsr a
    lsr a
    lsr a
    cmp #29
    bcs @next
    sta temp + 3
    tya
    asl a
    sta temp + 4
    jsr icon_row
    inc temp + 3
    inc temp + 4
    jsr icon_row
@next:
    ldy temp + 1
    iny
    cpy #AREAS + 1
    bne @area
    rts

; Tiles temp + 4 and the one two further, at row temp + 3, column temp + 2.
icon_row:
    ldx temp + 3
    ldy temp + 2
    jsr set_cell
    ldx temp + 4
    lda area_icons,x
    sta PPU_DATA
    lda area_icons + 2,x
    sta PPU_DATA
    rts

; ---------------------------------------------------------------------------------------------
; Carts. A pattern is a list of directions, the last one with bit 7 set; a cart drives in each of
; them until it comes to an area.

; Puts cart X at the beginning of its route.
start_route:
    jsr find_pattern
    sta cart_phase,x
    lda TRUCK_STARTS,x
    and #$0F
    asl a
    tay
    lda AREA_POSITIONS,y
    sta cart_x,x
    lda AREA_POSITIONS + 1,y
    sta cart_y,x
    lda #LEG
    sta cart_way,x
    rts

; The place of the first phase of cart X comes in A.
find_pattern:
    lda TRUCK_STARTS,x
    lsr a
    lsr a
    lsr a
    lsr a
    tay
    lda TRUCK_POINTERS,y
    rts

drive_carts:
    ldx #CARTS - 1
@cart:
    jsr drive
    dex
    bpl @cart
    rts

drive:
    ldy cart_phase,x
    lda TRUCK_PATTERNS,y
    and #7
    tay
    lda cart_x,x
    clc
    adc direction_x,y
    sta cart_x,x
    lda cart_y,x
    clc
    adc direction_y,y
    sta cart_y,x
    dec cart_way,x
    bne @done
    lda #LEG
    sta cart_way,x
    jsr is_at_area
    bcs next_phase
@done:
    rts

next_phase:
    ldy cart_phase,x
    lda TRUCK_PATTERNS,y
    bmi @again
    inc cart_phase,x
    rts
@again: ; most routes end where they began
    jsr start_route
    rts

; Sets carry if cart X is at an area, or about to leave the picture.
is_at_area:
    lda cart_x,x
    and #$F0
    sta temp
    beq @stop
    lda cart_y,x
    and #$F0
    sta temp + 1
    beq @stop
    ldy #2 * AREAS
@area:
    lda AREA_POSITIONS,y
    and #$F0
    cmp temp
    bne @next
    lda AREA_POSITIONS + 1,y
    and #$F0
    cmp temp + 1
    beq @stop
@next:
    dey
    dey
    bpl @area
    clc
    rts
@stop:
    sec
    rts

draw_carts:
    ldx #0
@cart:
    stx cart
    ldy cart_phase,x
    lda TRUCK_PATTERNS,y
    and #7
    clc
    adc #CART_QUADS
    tay
    lda QUAD_SPRITES,y ; where the quad sprite begins
    sta pieces_at
    lda cart_x,x
    sta sprite_x
    ldy cart_y,x
    dey
    sty sprite_y
    lda #0
    sta sprite_x + 1
    sta sprite_y + 1
    ldx #0
@piece:
    ldy pieces_at
    lda QUAD_SPRITES,y
    sta temp
    lda QUAD_SPRITES + 1,y
    and #$C3
    sta temp + 3
    iny
    iny
    sty pieces_at
    lda piece_x,x
    sta temp + 1
    lda piece_y,x
    sta temp + 2
    stx temp + 4
    jsr add_sprite
    ldx temp + 4
    inx
    cpx #4
    bne @piece
    ldx cart
    inx
    cpx #CARTS
    bne @cart
    rts

.segment "BSS"

pieces_at: .res 1

.segment "RODATA"

; Directions go clockwise from the right.
direction_x: .lobytes 1, 1, 0, -1, -1, -1, 0, 1
direction_y: .lobytes 0, 1, 1, 1, 0, -1, -1, -1
; A quad sprite's tiles around its position, left column first.
piece_x: .lobytes -8, -8, 0, 0
piece_y: .lobytes -8, 0, -8, 0

.include "overworld.inc"
