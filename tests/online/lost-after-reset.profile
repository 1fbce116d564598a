# The phone loses the command that follows ATZ.
after-reset = loses-command

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
