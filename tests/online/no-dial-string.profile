# The phone takes no dial string that anybody knows.
# exit: 7
dials = ATD*98#

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
