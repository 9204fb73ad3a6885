section .data
message db 'hello', 10      ; the text
section .text
global _start
_start:
    mov eax, 4
    mov ecx, message
    int 0x80
