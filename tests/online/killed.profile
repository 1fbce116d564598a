# The phone has a context of its own, which has to be there again whenever the command is killed.
# kills: 4
context = 1,"IP","before.example"

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
