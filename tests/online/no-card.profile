# The phone has no card.
# exit: 4

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CPIN?: +CME ERROR: 10
AT+CIMI: +CME ERROR: 10
