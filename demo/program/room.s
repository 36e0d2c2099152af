; A room: where its data lies, walking through it, and its doors.

.include "console.inc"
.include "layout.inc"

HERO_STEP   = 4 ; pixels a frame
HERO_MARGIN = 8 ; how near the hero comes to the room's edge
REACH       = 16 ; how near an exit has to be

; A position outside the room goes to its edge.
.macro limit position, size
    .local high_enough, inside
    lda position + 1
    bne high_enough
    lda position
    cmp #HERO_MARGIN
    bcs high_enough
    lda #HERO_MARGIN
    sta position
high_enough:
    lda size
    sec
    sbc #HERO_MARGIN
    sta temp
    lda size + 1
    sbc #0
    sta temp + 1
    lda temp
    cmp position
    lda temp + 1
    sbc position + 1
    bcs inside
    lda temp
    sta position
    lda temp + 1
    sta position + 1
inside:
.endmacro

.macro add_to position, step
    lda position
    clc
    adc #<(step)
    sta position
    lda position + 1
    adc #>(step)
    sta position + 1
.endmacro

; camera = hero - half of the picture, from 0 to what leaves the picture inside the room.
.macro follow camera, hero, size, picture
    .local positive, inside
    lda hero
    sec
    sbc #picture / 2
    sta camera
    lda hero + 1
    sbc #0
    sta camera + 1
    bcs positive
    lda #0
    sta camera
    sta camera + 1
positive:
    lda size
    sec
    sbc #<(picture)
    sta temp
    lda size + 1
    sbc #>(picture)
    sta temp + 1
    lda temp
    cmp camera
    lda temp + 1
    sbc camera + 1
    bcs inside
    lda temp
    sta camera
    lda temp + 1
    sta camera + 1
inside:
.endmacro

.segment "BSS"

layout_width:   .res 1 ; cells in a row of the layout, border included
room_columns:   .res 1 ; screens
room_rows:      .res 1
room_width:     .res 2 ; pixels
room_height:    .res 2
list_pointer:   .res 2 ; the room's screen list, layout, Tile32 set and units
layout_pointer: .res 2
blocks_pointer: .res 2
units_pointer:  .res 2
entrance:       .res 1 ; slot through which the hero comes in
start_used:     .res 1 ; the Start button has served for something else than a door

.segment "CODE"

; Reads the word at (A, X) + room x 2, a room table in the bank that shows: the low byte comes in A,
; the high byte in X.
word_at_room:
    sta pointer
    stx pointer + 1
    lda room
    asl a
    tay
    bcc @near
    inc pointer + 1
@near:
    iny
    lda (pointer),y
    tax
    dey
    lda (pointer),y
    rts

.macro read_room_table table, result
    lda #<(table)
    ldx #>(table)
    jsr word_at_room
    sta result
    stx result + 1
.endmacro

; Loads the room `room` and shows it, with the hero at the first entrance that is set.
load_room:
    jsr find_first_entrance
show_room:
    lda #0
    sta settled
    sta overworld
    jsr screen_off
    jsr find_room_data
    jsr place_hero
    jsr load_room_graphics
    jsr reset_animation
    jsr clear_sprites
    jsr follow_hero
    jsr draw_window
    jmp screen_on

find_room_data:
    read_room_table LIST_TABLE, list_pointer ; in the fixed bank
    jsr find_layout
    lda #BLOCK_TABLE_BANK
    jsr set_bank
    read_room_table BLOCK_TABLE, blocks_pointer
    lda #UNIT_BANK
    jsr set_bank
    read_room_table UNIT_TABLE, units_pointer
    rts

; A layout's entry has four bytes: the pointer, then width and height in screens, the two border
; columns included. Rooms without a map count as one screen.
find_layout:
    lda room
    sta temp
    lda #0
    asl temp
    rol a
    asl temp
    rol a
    clc
    adc #>LAYOUT_TABLE
    sta pointer + 1
    lda #<LAYOUT_TABLE
    sta pointer
    ldy temp
    lda (pointer),y
    sta layout_pointer
    iny
    lda (pointer),y
    sta layout_pointer + 1
    iny
    lda (pointer),y
    sta layout_width
    sec
    sbc #2
    bcc @narrow
    bne @wide
@narrow:
    lda #1
@wide:
    sta room_columns
    sta room_width + 1 ; a screen is 256 pixels wide
    iny
    lda (pointer),y
    bne @high
    lda #1
@high:
    sta room_rows
    ldx #0
    stx room_width
    jsr rows_to_lines
    lda temp
    sta room_height
    lda temp + 1
    sta room_height + 1
    rts

; temp (2 bytes) = A x 240, the lines of A screens. Keeps X.
rows_to_lines:
    sta temp + 1
    sta temp + 2
    lda #0
    ldy #4
@shift:
    asl temp + 2
    rol a
    dey
    bne @shift
    sta temp + 3
    lda #0
    sec
    sbc temp + 2
    sta temp
    lda temp + 1
    sbc temp + 3
    sta temp + 1
    rts

; ---------------------------------------------------------------------------------------------
; Doors

; The tables of entrances and exits have four bytes for each room. Reads the one of slot X from the
; table at (A, Y); temp keeps X.
door_byte:
    sta pointer
    sty pointer + 1
    stx temp
    lda room
    sta temp + 1
    lda #0
    asl temp + 1
    rol a
    asl temp + 1
    rol a
    clc
    adc pointer + 1
    sta pointer + 1
    lda temp + 1
    clc
    adc temp
    tay
    lda (pointer),y
    rts

.macro read_door_table table
    lda #<(table)
    ldy #>(table)
    jsr door_byte
.endmacro

; Sets `entrance` to the first one of the room that is set, else to 0.
find_first_entrance:
    ldx #0
@slot:
    read_door_table ENTRANCE_SCREENS
    ldx temp
    cmp #$10
    bcs @found
    inx
    cpx #4
    bne @slot
    ldx #0
@found:
    stx entrance
    rts

; Puts the hero into the middle of the entrance's cell; where the entrance is not set, or lies
; outside the room, somewhere near.
place_hero:
    ldx entrance
    read_door_table ENTRANCE_SCREENS
    cmp #$10
    bcs @set
    lda #128
    sta hero_x
    lda #120
    sta hero_y
    lda #0
    sta hero_x + 1
    sta hero_y + 1
    rts
@set:
    pha
    lsr a
    lsr a
    lsr a
    lsr a
    sec
    sbc #1
    sta hero_x + 1
    pla
    and #$0F
    jsr rows_to_lines
    lda temp
    sta hero_y
    lda temp + 1
    sta hero_y + 1
    ldx entrance
    read_door_table ENTRANCE_CELLS
    pha
    and #$F0
    ora #8
    sta hero_x
    pla
    asl a
    asl a
    asl a
    asl a
    ora #8
    clc
    adc hero_y
    sta hero_y
    bcc keep_hero_inside
    inc hero_y + 1
    ; goes on below

; Keeps the hero, wherever a door or a step has put it, inside the room.
keep_hero_inside:
    limit hero_x, room_width
    limit hero_y, room_height
    rts

; ---------------------------------------------------------------------------------------------
; One frame of walking

room_frame:
    lda pad_pressed
    and #PAD_SELECT
    beq @stay
    jmp enter_overworld
@stay:
    lda pad_pressed
    and #PAD_START
    beq @no_start
    lda #0
    sta start_used
@no_start:
    lda pad
    and #PAD_START
    beq @free
    lda pad_pressed
    and #PAD_B
    beq @walk
    sta start_used
    jsr show_next
    jmp @walk
@free:
    lda pad_pressed
    asl a ; A
    bcs next_room
    bmi previous_room ; B
    lda pad_released
    and #PAD_START
    beq @walk
    lda start_used
    bne @walk
    jsr find_exit
    bcc @walk
    jmp show_room
@walk:
    jsr walk
    jsr keep_hero_inside
    jsr follow_hero
    lda shown
    cmp #SHOWN_STILL
    beq @still
    jsr step_animation
@still:
    jsr show_sprites
    jsr extend_window
    jsr window_settled
    sta settled
    rts

next_room:
    ldx room
    inx
    cpx #ROOMS
    bne @set
    ldx #0
@set:
    stx room
    jmp load_room

previous_room:
    ldx room
    bne @set
    ldx #ROOMS
@set:
    dex
    stx room
    jmp load_room

; Everything, the background alone, units that stand still, and again.
show_next:
    ldx shown
    inx
    cpx #SHOWN_STILL + 1
    bne @set
    ldx #SHOWN_ALL
@set:
    stx shown
    jmp reset_animation

show_sprites:
    jsr clear_sprites
    lda shown
    cmp #SHOWN_MAP
    beq @done
    pha
    jsr draw_units
    pla
    bne @done ; SHOWN_STILL
    jmp draw_hero
@done:
    rts

; The hero flies; there is nothing to bump into.
walk:
    lda pad
    lsr a
    bcc @left
    add_to hero_x, HERO_STEP
@left:
    lda pad
    and #PAD_LEFT
    beq @down
    add_to hero_x, -HERO_STEP
@down:
    lda pad
    and #PAD_DOWN
    beq @up
    add_to hero_y, HERO_STEP
@up:
    lda pad
    and #PAD_UP
    beq @done
    add_to hero_y, -HERO_STEP
@done:
    rts

; The camera keeps the hero in the middle, but never looks past the room's edges.
follow_hero:
    follow camera_x, hero_x, room_width, 256
    follow camera_y, hero_y, room_height, 240
    lda camera_x
    sta scroll_x
    jsr camera_screen_row ; X: screens above, A: lines into the screen
    sta scroll_y
    txa
    and #1
    asl a
    sta scroll_table
    lda camera_x + 1
    and #1
    ora scroll_table
    sta scroll_table
    rts

; Looks for a unit that is an exit, where the hero stands. If there is one, carry is set, and
; `room` and `entrance` are where it leads.
find_exit:
    lda units_pointer
    sta pointer
    lda units_pointer + 1
    sta pointer + 1
    lda #UNIT_BANK
    jsr set_bank
    lda #MOST_UNITS
    sta temp + 9
@unit:
    ldy #0
    lda (pointer),y
    cmp #$FF
    beq @none
    sec
    sbc #EXIT_TYPE
    cmp #4
    bcs @next
    sta temp + 8
    ldy #2
    lda (pointer),y
    beq @next ; without a placement
    jsr hero_is_near
    bcs @found
@next:
    lda pointer
    clc
    adc #5
    sta pointer
    bcc @same
    inc pointer + 1
@same:
    dec temp + 9
    bne @unit
@none:
    clc
    rts
@found:
    ldx temp + 8
    read_door_table EXIT_ENTRANCES
    and #3
    sta entrance
    ldx temp
    read_door_table EXIT_ROOMS
    cmp #ROOMS
    bcs @none
    sta room
    sec
    rts

; Sets carry if the unit at (pointer) is less than REACH pixels away from the hero.
hero_is_near:
    ldy #1
    lda hero_x
    sec
    sbc (pointer),y
    sta temp + 4
    iny
    lda (pointer),y
    tax
    dex
    stx temp + 6
    lda hero_x + 1
    sbc temp + 6
    jsr is_near
    bcc @far
    ldy #4
    lda (pointer),y
    jsr rows_to_lines
    ldy #3
    lda temp
    clc
    adc (pointer),y
    sta temp
    bcc @same
    inc temp + 1
@same:
    lda hero_y
    sec
    sbc temp
    sta temp + 4
    lda hero_y + 1
    sbc temp + 1
    jmp is_near
@far:
    rts

; Sets carry if the distance, low byte in temp + 4 and high byte in A, is -REACH + 1 to REACH - 1.
is_near:
    tax
    lda temp + 4
    clc
    adc #REACH - 1
    sta temp + 4
    txa
    adc #0
    bne @far
    lda temp + 4
    cmp #2 * REACH - 1
    bcs @far
    sec
    rts
@far:
    clc
    rts
