# The phone finds no network, however long it searches.
# connect: --registration 5
# exit: 5
registration = searching

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
