maker = Quectel
name = BG96
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nBG96\nRevision: BG96MAR02A09M1G
