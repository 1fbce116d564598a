# The network takes only the empty access point, and knows then which one is meant.
access-points = ""

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
