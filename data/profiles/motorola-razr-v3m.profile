# CDMA; a label, the rest of a prefix, and a text that is cut; only the first line of the ATI
# reply is shown by the source.
maker = Motorola
name = RAZR V3m
source = public page; its address was not kept
phone = Motorola: unnamed model

ATI0: Manufacturer: I: Motorola CE, Copyright 20
