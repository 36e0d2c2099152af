; Start, the frame loop, and what happens while the beam is off the screen.

.include "console.inc"
.include "layout.inc"

; What fits into the time off screen, in units of about 12 cycles: one for each byte, and what a run
; costs besides. The screen is off for 2273 cycles, of which the sprites and the rest of the
; interrupt take about 600.
BUDGET   = 130
RUN_COST = 8

.segment "CODE"

reset:
    sei
    cld
    ldx #0
    stx PPU_CONTROL
    stx PPU_MASK
    stx APU_STATUS
    lda #$40
    sta APU_FRAME ; no interrupts from there
    dex
    txs
    bit PPU_STATUS
@first_frame:
    bit PPU_STATUS
    bpl @first_frame
    lda #0
    tax
@clear:
    sta $00,x
    sta $0300,x
    sta $0400,x
    sta $0500,x
    sta $0600,x
    sta $0700,x
    inx
    bne @clear
@second_frame:
    bit PPU_STATUS
    bpl @second_frame
    jsr load_room

frame_loop:
    jsr read_pad
    lda overworld
    bne @overworld
    jsr room_frame
    jmp @done
@overworld:
    jsr overworld_frame
@done:
    lda #1
    sta frame_done
@wait:
    lda frame_done
    bne @wait
    beq frame_loop

; Shows bank A at $8000. The write must meet its own value in the ROM.
set_bank:
    tay
    sta bank_numbers,y
    rts

read_pad:
    lda #1
    sta PAD_1
    lsr a
    sta PAD_1
    lda pad
    sta temp
    ldx #8
@button:
    lda PAD_1
    lsr a
    rol pad
    dex
    bne @button
    lda temp
    eor #$FF
    and pad
    sta pad_pressed
    lda pad
    eor #$FF
    and temp
    sta pad_released
    rts

; Between these two the picture memory can be written at any time.
screen_off:
    lda scroll_table
    ora #CONTROL_LOAD
    sta PPU_CONTROL ; no more interrupts; the rest of the picture stays as it is
@wait:
    bit PPU_STATUS
    bpl @wait
    lda #0
    sta PPU_MASK
    lda #CONTROL_LOAD
    sta PPU_CONTROL
    rts

screen_on:
    bit PPU_STATUS
@wait:
    bit PPU_STATUS
    bpl @wait
    lda #CONTROL
    sta PPU_CONTROL
    rts

; Writes the 32 colour numbers at (pointer). Entry 16 comes after entry 0, whose place it shares:
; it is the backdrop.
write_palette:
    lda #$3F
    sta PPU_ADDRESS
    ldy #0
    sty PPU_ADDRESS
@colour:
    lda (pointer),y
    sta PPU_DATA
    iny
    cpy #32
    bne @colour
    rts

; Writes the whole queue while the screen is off.
flush_all:
    lda #$FF
    sta queue_budget
    jsr flush_queue
    lda queue_end
    bne flush_all
    lda #CONTROL_LOAD
    sta PPU_CONTROL
    rts

; Writes runs from the queue as long as queue_budget lasts.
flush_queue:
    ldx queue_start
    cpx queue_end
    beq @empty
    lda queue + 2,x
    clc
    adc #RUN_COST
    sta temp + 15
    lda queue_budget
    sec
    sbc temp + 15
    bcc @later
    sta queue_budget
    ldy #CONTROL
    lda queue,x
    bpl @across
    ldy #CONTROL_DOWN
    and #$7F
@across:
    sty PPU_CONTROL
    sta PPU_ADDRESS
    lda queue + 1,x
    sta PPU_ADDRESS
    lda queue + 2,x
    inx
    inx
    inx
    lsr a
    tay
    bcc @pairs
    lda queue,x
    sta PPU_DATA
    inx
    cpy #0
    beq @written
@pairs:
    lda queue,x
    sta PPU_DATA
    inx
    lda queue,x
    sta PPU_DATA
    inx
    dey
    bne @pairs
@written:
    stx queue_start
    jmp flush_queue
@empty:
    lda #0
    sta queue_start
    sta queue_end
@later:
    rts

nmi:
    pha
    txa
    pha
    tya
    pha
    lda frame_done
    beq @late ; the frame is not ready: show the last one again
    lda #0
    sta OAM_ADDRESS
    lda #>OAM
    sta OAM_DMA
    lda temp + 15
    pha
    lda #BUDGET
    sta queue_budget
    jsr flush_queue
    pla
    sta temp + 15
    bit PPU_STATUS
    lda scroll_table
    ora #CONTROL
    sta PPU_CONTROL
    lda scroll_x
    sta PPU_SCROLL
    lda scroll_y
    sta PPU_SCROLL
    lda #$1E
    sta PPU_MASK
    lda #0
    sta frame_done
@late:
    pla
    tay
    pla
    tax
    pla
irq:
    rti

.segment "RODATA"

bank_numbers:
    .repeat 16, i
    .byte i
    .endrepeat

.segment "VECTORS"
    .addr nmi, reset, irq
