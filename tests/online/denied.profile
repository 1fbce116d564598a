# The network does not let the card in. The device has to say so, and not to try settings.
# exit: 5
registration = denied

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
