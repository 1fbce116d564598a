# RDY and APP RDY at start.
maker = Quectel
name = BG95-M4
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nBG95-M4\nRevision: BG95M4LAR02A02
