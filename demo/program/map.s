; The room's map in the nametables. The four nametables are a torus of 32 x 30 cells of 16 x 16
; pixels; a window of 19 x 18 cells around the picture is kept up to date in it, and moves after the
; camera strip by strip.

.include "console.inc"
.include "layout.inc"

SCREEN_COLUMNS = 16 ; cells
SCREEN_ROWS    = 15
WINDOW_COLUMNS = 19 ; what the picture can show, and one cell around it
WINDOW_ROWS    = 18

.segment "ZEROPAGE"

; The cell that is looked up or drawn: screen, and cell within the screen. -1 is left of or above
; the room.
cell_screen_x: .res 1
cell_screen_y: .res 1
cell_x:        .res 1 ; 0 to 15
cell_y:        .res 1 ; 0 to 14
cell_tile:     .res 1 ; first of its four tiles
cell_palette:  .res 1
screen:        .res 2 ; the 64 Tile32 numbers of the cell's screen
record:        .res 2
left:          .res 1 ; cells of the strip still to be drawn
segment:       .res 1 ; cells of the strip that lie in one nametable
along:         .res 1 ; from a tile of a cell to the next one along the strip: 1 down, 2 across
drawn:         .res 1
quarter:       .res 1 ; where the cell's bits lie in its attribute byte, 0 to 3
table:         .res 1 ; number of the nametable

.segment "BSS"

window_screen_x: .res 1 ; the window's upper left cell
window_cell_x:   .res 1
window_screen_y: .res 1
window_cell_y:   .res 1
wanted_screen:   .res 1
wanted_cell:     .res 1
known_screen_x:  .res 1 ; the screen that `screen` is
known_screen_y:  .res 1
screen_outside:  .res 1 ; not 0: there is no such screen in the room
second:          .res 2 * WINDOW_COLUMNS ; tiles of a strip's second half
second_end:      .res 1
first_attribute: .res 1
drawn_columns:   .res 1
attributes:      .res 256 ; what the attribute tables hold, 64 bytes each

.segment "RODATA"

quarter_masks: .byte %11111100, %11110011, %11001111, %00111111
palette_bits:  .byte $00, $55, $AA, $FF

.segment "CODE"

; ---------------------------------------------------------------------------------------------
; From the room's tables to a cell

; Finds the screen at cell_screen_x, cell_screen_y, unless it is the last one found.
find_screen:
    lda cell_screen_x
    cmp known_screen_x
    bne @other
    lda cell_screen_y
    cmp known_screen_y
    bne @other
    rts
@other:
    lda #1
    sta screen_outside
    lda layout_width
    beq @outside ; a room without a map
    lda cell_screen_y
    sta known_screen_y
    cmp room_rows
    bcs @outside
    lda cell_screen_x
    sta known_screen_x
    cmp room_columns
    bcs @outside
    dec screen_outside
    ; the cell's byte of the layout; the first byte of each row is a border
    sec
    adc layout_pointer
    sta pointer
    lda layout_pointer + 1
    adc #0
    sta pointer + 1
    ldx cell_screen_y
    beq @row
@next_row:
    lda pointer
    clc
    adc layout_width
    sta pointer
    bcc @same
    inc pointer + 1
@same:
    dex
    bne @next_row
@row:
    lda #LAYOUT_BANK
    jsr set_bank
    ldy #0
    lda (pointer),y
    ; it counts entries of the screen list
    asl a
    sta temp
    lda list_pointer
    sta pointer
    lda list_pointer + 1
    adc #0
    sta pointer + 1
    lda #LIST_BANK
    jsr set_bank
    ldy temp
    lda (pointer),y
    sta screen
    iny
    lda (pointer),y
    sta screen + 1
@outside:
    rts

; Reads cell_tile and cell_palette of the cell from its screen's Tile32 records.
read_cell:
    lda screen_outside
    bne @outside
    lda #SCREEN_BANK ; screens from $C000 on lie in the fixed bank
    jsr set_bank
    lda cell_y
    lsr a
    asl a
    asl a
    asl a
    sta temp
    lda cell_x
    lsr a
    ora temp
    tay
    lda (screen),y
    ; x 7
    sta temp
    sta record
    lda #0
    ldx #3
@shift:
    asl record
    rol a
    dex
    bne @shift
    tax
    lda record
    sec
    sbc temp
    sta record
    bcs @seven
    dex
@seven:
    lda record
    clc
    adc blocks_pointer
    sta record
    txa
    adc blocks_pointer + 1
    sta record + 1
    lda cell_x
    and #1
    asl a
    sta temp
    lda cell_y
    and #1
    sta temp + 1
    ora temp
    jsr block_byte
    sta cell_tile
    lda #4
    jsr block_byte
    sta cell_palette
    lda temp
    lsr a
    ora temp + 1
    beq @first
    ; the palettes of the four cells follow each other row by row
    lda temp + 1
    asl a
    sta temp + 1
    lda temp
    lsr a
    ora temp + 1
    tax
@quarter:
    lsr cell_palette
    lsr cell_palette
    dex
    bne @quarter
@first:
    lda cell_palette
    and #3
    sta cell_palette
    rts
@outside:
    lda #0
    sta cell_tile
    sta cell_palette
    rts

; Byte A of the record. Tile32 sets run on from one bank into the next, which has addresses from
; $C000 on and is shown 16 KB lower.
block_byte:
    clc
    adc record
    sta pointer
    lda record + 1
    adc #0
    cmp #$C0
    bcs @second
    sta pointer + 1
    lda #BLOCK_BANK
    bne @read
@second:
    sbc #$40
    sta pointer + 1
    lda #BLOCK_BANK + 1
@read:
    jsr set_bank
    ldy #0
    lda (pointer),y
    rts

; ---------------------------------------------------------------------------------------------
; Strips

; Sets `table` and `quarter` of the cell; the number of its attribute byte, 0 to 255, comes in X.
find_attribute:
    lda cell_screen_y
    and #1
    asl a
    sta table
    lda cell_screen_x
    and #1
    ora table
    sta table
    ; table x 64 + cell_y / 2 x 8 + cell_x / 2
    asl a
    asl a
    asl a
    sta temp
    lda cell_y
    lsr a
    ora temp
    asl a
    asl a
    asl a
    sta temp
    lda cell_x
    lsr a
    ora temp
    tax
    lda cell_y
    and #1
    asl a
    sta quarter
    lda cell_x
    and #1
    ora quarter
    sta quarter
    rts

; Puts the cell's palette into the copy of the attribute tables.
set_attribute:
    jsr find_attribute
    ldy quarter
    lda attributes,x
    and quarter_masks,y
    sta temp
    lda quarter_masks,y
    eor #$FF
    ldy cell_palette
    and palette_bits,y
    ora temp
    sta attributes,x
    rts

; Begins a run of A bytes in the queue at the cell's tile, X tiles right and Y tiles down of its
; corner. `drawn` is where the run's bytes go. Set bit 7 of temp + 2 for a run downwards.
begin_run:
    sta temp + 3
    stx temp
    sty temp + 1
    lda cell_y
    asl a
    ora temp + 1
    sta temp + 1 ; row, 0 to 29
    lda cell_x
    asl a
    ora temp
    sta temp
    ; $2000 + table x $400 + row x 32 + column
    lda temp + 1
    asl a
    asl a
    asl a
    asl a
    asl a
    ora temp
    pha
    lda temp + 1
    lsr a
    lsr a
    lsr a
    sta temp + 1
    lda table
    asl a
    asl a
    ora temp + 1
    ora #$20
    ora temp + 2
    ldx queue_end
    sta queue,x
    pla
    sta queue + 1,x
    lda temp + 3
    sta queue + 2,x
    inx
    inx
    inx
    stx drawn
    rts

; Puts A bytes of the attribute tables into the queue, from byte first_attribute on.
queue_attributes:
    ldx queue_end
    sta queue + 2,x
    tay
    lda first_attribute
    rol a ; its two highest bits are the nametable
    rol a
    rol a
    and #3
    asl a
    asl a
    ora #$23
    sta queue,x
    lda first_attribute
    ora #$C0
    sta queue + 1,x
    inx
    inx
    inx
    stx drawn
    ldx first_attribute
@byte:
    lda attributes,x
    inx
    stx temp
    ldx drawn
    sta queue,x
    inc drawn
    ldx temp
    dey
    bne @byte
    lda drawn
    sta queue_end
    rts

; Adds the cell to the strip: two tiles to the run that was begun, two to `second`, and its palette.
add_cell:
    jsr read_cell
    ldx drawn
    ldy second_end
    lda cell_tile
    sta queue,x
    clc
    adc along
    sta queue + 1,x
    lda along
    eor #3 ; 2 or 1, across
    clc
    adc cell_tile
    sta second,y
    clc
    adc along
    sta second + 1,y
    inc drawn
    inc drawn
    inc second_end
    inc second_end
    jmp set_attribute

; Copies the strip's second half from `second` behind the run that was begun.
copy_second:
    ldy #0
    ldx drawn
@byte:
    lda second,y
    sta queue,x
    inx
    iny
    cpy second_end
    bne @byte
    stx queue_end
    rts

; The number of cells, at most `left`, up to the limit A from cell X on: `segment`.
measure_segment:
    stx temp
    sec
    sbc temp
    cmp left
    bcc @set
    lda left
@set:
    sta segment
    rts

; Draws column cell_screen_x, cell_x of the window, from its upper row on.
draw_column:
    lda window_screen_y
    sta cell_screen_y
    lda window_cell_y
    sta cell_y
    lda #WINDOW_ROWS
    sta left
@segment:
    lda #SCREEN_ROWS
    ldx cell_y
    jsr measure_segment
    jsr find_screen
    jsr find_attribute
    stx first_attribute
    lda #$80
    sta temp + 2
    lda #1 ; tiles are counted down the left column, then down the right
    sta along
    lda segment
    asl a
    ldx #0
    ldy #0
    jsr begin_run
    lda cell_y
    pha
    lda segment
    pha
    ldy #0
    sty second_end
@cell:
    jsr add_cell
    inc cell_y
    dec segment
    bne @cell
    lda drawn
    sta queue_end
    pla
    sta segment
    lda cell_y
    sta temp + 4 ; the row after the segment
    pla
    sta cell_y
    ldx #1
    ldy #0
    lda segment
    asl a
    jsr begin_run
    jsr copy_second
    jsr queue_column_attributes
    lda left
    sec
    sbc segment
    sta left
    beq @done
    lda #0
    sta cell_y
    inc cell_screen_y
    jmp @segment
@done:
    rts

; The attribute bytes of rows cell_y to temp + 4 - 1, eight apart.
queue_column_attributes:
    lda temp + 4
    sec
    sbc #1
    lsr a
    sta temp + 5
    lda cell_y
    lsr a
    sta temp + 6
@byte:
    lda #1
    jsr queue_attributes
    lda first_attribute
    clc
    adc #8
    sta first_attribute
    inc temp + 6
    lda temp + 5
    cmp temp + 6
    bcs @byte
    rts

; Draws row cell_screen_y, cell_y of the window, from its left column on.
draw_row:
    lda window_screen_x
    sta cell_screen_x
    lda window_cell_x
    sta cell_x
    lda #WINDOW_COLUMNS
    sta left
@segment:
    lda #SCREEN_COLUMNS
    ldx cell_x
    jsr measure_segment
    jsr find_screen
    jsr find_attribute
    stx first_attribute
    lda #0
    sta temp + 2
    lda #2
    sta along
    lda segment
    asl a
    ldx #0
    ldy #0
    jsr begin_run
    lda cell_x
    pha
    lda segment
    pha
    ldy #0
    sty second_end
@cell:
    jsr add_cell
    inc cell_x
    dec segment
    bne @cell
    lda drawn
    sta queue_end
    pla
    sta segment
    lda cell_x
    sta temp + 4
    pla
    sta cell_x
    ldx #0
    ldy #1
    lda segment
    asl a
    jsr begin_run
    jsr copy_second
    ; attributes of columns cell_x to temp + 4 - 1
    lda cell_x
    lsr a
    sta temp + 5
    lda temp + 4
    clc
    adc #1
    lsr a
    sec
    sbc temp + 5
    jsr queue_attributes
    lda left
    sec
    sbc segment
    sta left
    beq @done
    lda #0
    sta cell_x
    inc cell_screen_x
    jmp @segment
@done:
    rts

; ---------------------------------------------------------------------------------------------
; The window

; Splits camera_y: screens above in X, lines into the screen in A.
camera_screen_row:
    ldx #0
    lda camera_y + 1
    sta temp + 1
    lda camera_y
@screen:
    ldy temp + 1
    bne @more
    cmp #240
    bcc @done
@more:
    sec
    sbc #240
    bcs @next
    dec temp + 1
@next:
    inx
    bne @screen
@done:
    rts

; Where the window's left column belongs: one cell left of the camera.
find_wanted_column:
    lda camera_x + 1
    sta wanted_screen
    lda camera_x
    lsr a
    lsr a
    lsr a
    lsr a
    sec
    sbc #1
    bcs @set
    dec wanted_screen
    lda #SCREEN_COLUMNS - 1
@set:
    sta wanted_cell
    rts

find_wanted_row:
    jsr camera_screen_row
    stx wanted_screen
    lsr a
    lsr a
    lsr a
    lsr a
    sec
    sbc #1
    bcs @set
    dec wanted_screen
    lda #SCREEN_ROWS - 1
@set:
    sta wanted_cell
    rts

; Draws the whole window around the camera while the screen is off.
draw_window:
    lda #$FF ; no screen is known
    sta known_screen_x
    sta known_screen_y
    lda #1
    sta screen_outside
    lda #0
    sta queue_start
    sta queue_end
    jsr find_wanted_row
    lda wanted_screen
    sta window_screen_y
    lda wanted_cell
    sta window_cell_y
    jsr find_wanted_column
    lda wanted_screen
    sta window_screen_x
    sta cell_screen_x
    lda wanted_cell
    sta window_cell_x
    sta cell_x
    lda #WINDOW_COLUMNS
    sta drawn_columns
@column:
    jsr draw_column
    jsr flush_all
    inc cell_x
    lda cell_x
    cmp #SCREEN_COLUMNS
    bne @same
    lda #0
    sta cell_x
    inc cell_screen_x
@same:
    dec drawn_columns
    bne @column
    rts

; Compares the window with where it belongs: A is 0 if it is there, 1 if it has to move along a row,
; 2 if only up or down. The wanted position of that direction is found.
find_shift:
    jsr find_wanted_column
    lda wanted_cell
    cmp window_cell_x
    bne @column
    lda wanted_screen
    cmp window_screen_x
    bne @column
    jsr find_wanted_row
    lda wanted_cell
    cmp window_cell_y
    bne @row
    lda wanted_screen
    cmp window_screen_y
    bne @row
    lda #0
    rts
@column:
    lda #1
    rts
@row:
    lda #2
    rts

; Moves the window one cell nearer to the camera, if that is needed and the queue is empty.
extend_window:
    lda queue_end
    bne @done
    jsr find_shift
    beq @done
    lsr a
    bcs extend_column
    jmp extend_row
@done:
    rts

; Answers 1 if the window is where it belongs and written, else 0.
window_settled:
    lda queue_end
    bne @no
    jsr find_shift
    bne @no
    lda #1
    rts
@no:
    lda #0
    rts

; Compares the wanted position with screen A, cell X: carry is set if it is further right or down.
; A screen of $FF lies before screen 0.
is_wanted_after:
    sta temp
    stx temp + 1
    lda wanted_cell
    clc ; equal positions do not come here
    sbc temp + 1
    lda wanted_screen
    sbc temp
    asl a
    bcs @before
    sec
    rts
@before:
    clc
    rts

; Moves the window by one cell towards the wanted position, along a row or along a column, and has
; `draw` draw what came into it. The window begins at cell window_cell of screen window_screen and is
; window_size cells long; a screen has screen_size.
.macro extend window_screen, window_cell, window_size, draw_screen, draw_cell, screen_size, draw
    .local before, after, drawn, done
    lda window_screen
    ldx window_cell
    jsr is_wanted_after
    bcs after
    dec window_cell
    bpl before
    lda #screen_size - 1
    sta window_cell
    dec window_screen
before:
    lda window_cell
    sta draw_cell
    lda window_screen
    sta draw_screen
    jmp draw
after:
    lda window_screen ; what follows the window's last cell
    sta draw_screen
    lda window_cell
    clc
    adc #window_size - screen_size
    cmp #screen_size
    bcc drawn
    sbc #screen_size
    inc draw_screen
drawn:
    inc draw_screen
    sta draw_cell
    inc window_cell
    lda window_cell
    cmp #screen_size
    bne done
    lda #0
    sta window_cell
    inc window_screen
done:
    jmp draw
.endmacro

extend_column:
    extend window_screen_x, window_cell_x, WINDOW_COLUMNS, cell_screen_x, cell_x, SCREEN_COLUMNS, draw_column

extend_row:
    extend window_screen_y, window_cell_y, WINDOW_ROWS, cell_screen_y, cell_y, SCREEN_ROWS, draw_row
