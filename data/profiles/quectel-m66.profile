# Underscores for blanks.
maker = Quectel
name = M66
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel_Ltd\nQuectel_M66\nRevision: M66FARxxAxx
