maker = Quectel
name = RG500U (Tuoshi NR500-EA)
source = public page; its address was not kept
phone = Quectel: unnamed model

AT+CGMI: Quectel
