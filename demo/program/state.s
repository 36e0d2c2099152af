; Variables that several files share. The first ones keep their addresses, which docs/demo.md
; tells, so that a debugger or a test can read where the game stands.

.include "console.inc"

.segment "ZEROPAGE"

temp:         .res 16 ; $00, for the routine that runs
room:         .res 1  ; $10, number of the room
overworld:    .res 1  ; $11, 1 while the overworld is shown
camera_x:     .res 2  ; $12, room pixel at the left edge of the picture
camera_y:     .res 2  ; $14, room pixel at its upper edge
hero_x:       .res 2  ; $16, the hero's position in room pixels
hero_y:       .res 2  ; $18
shown:        .res 1  ; $1A, one of SHOWN_*
settled:      .res 1  ; $1B, 1 once the picture shows all of what the camera sees

pointer:      .res 2
pad:          .res 1  ; buttons that are down, PAD_*
pad_pressed:  .res 1  ; went down since the last frame
pad_released: .res 1
frame_done:   .res 1  ; 1: sprites, queue and scroll are ready for the picture
scroll_x:     .res 1
scroll_y:     .res 1
scroll_table: .res 1  ; number of the nametable with the picture's corner

.segment "BSS"

; Bytes to be written into the nametables while the beam is off the screen. Each run: address high
; (bit 7 set: downwards), address low, count, the bytes.
queue:        .res 256
queue_start:  .res 1 ; the first run not yet written
queue_end:    .res 1
queue_budget: .res 1
