# The only network is a foreign one, which the user does not want.
# connect: --no-roaming
# exit: 5
registration = roaming

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
