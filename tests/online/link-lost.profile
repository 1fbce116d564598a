# The network is lost 15 seconds after the first call. The device must not dial again.
# connect: --once
# exit: 9
drops = 15

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
