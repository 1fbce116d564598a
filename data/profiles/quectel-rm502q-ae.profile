maker = Quectel
name = RM502Q-AE
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nRM502Q-AE\nRevision: RM502QAEAAR13A04M4G
