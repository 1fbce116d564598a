# CDMA; only the first line of the ATI reply is shown by the source.
maker = Haier
name = (CDMA stick)
source = public page; its address was not kept
phone = Haier: unnamed model

ATI0: Manufacturer: Haier
