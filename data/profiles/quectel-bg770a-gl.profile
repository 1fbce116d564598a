# ATI1 same as ATI; echo on.
maker = Quectel
name = BG770A-GL
source = recorded exchange in a test; its address was not kept
phone = Quectel: BG770A-GL

AT+CGMI: Quectel
AT+CGMM: BG770A-GL
ATI0: Quectel\nBG770A-GL\nRevision: BG770AGLAAR01A05
