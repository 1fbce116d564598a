maker = Quectel
name = EG25-G
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nEG25-G\nRevision: EG25GGBR07A08M2G
