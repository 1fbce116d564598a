# The network asks for the user and the password of the setting, in clear (PAP).
authentication = pap mts mts
name-servers = 10.64.64.64

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 250010123456789
