# The card waits for its PIN, and nobody gave it.
# exit: 4

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CPIN?: +CPIN: SIM PIN
AT+CIMI: +CME ERROR: 11
