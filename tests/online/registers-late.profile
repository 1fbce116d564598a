# The phone is registered only after 8 seconds. A call before that fails.
registers = 8

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
