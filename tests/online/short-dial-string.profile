# The phone takes no other dial string than *99#.
dials = ATD*99#

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
