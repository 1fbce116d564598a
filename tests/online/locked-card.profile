# The card waits for its PIN.
# connect: --pin-file pin
# pin: 1234

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CPIN?: +CPIN: SIM PIN
AT+CPIN?: +CPIN: READY
AT+CPIN="1234": OK
AT+CIMI: +CME ERROR: 11
AT+CIMI: 410070123456789
