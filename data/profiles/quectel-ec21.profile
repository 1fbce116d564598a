# Commands in small letters.
maker = Quectel
name = EC21
source = public page; its address was not kept
phone = Quectel: EC21

AT+CGMI: Quectel
AT+CGMM: EC21
