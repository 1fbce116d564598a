# The radio is off until AT+CFUN=1, as with many built-in modems.
radio = off

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
