# The network asks for a proof that the device knows the password (CHAP).
authentication = chap mts mts
name-servers = 10.64.64.64

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 250010123456789
