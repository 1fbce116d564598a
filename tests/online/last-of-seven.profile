# The network takes only the last of seven access points.
access-points = vmi.velcom.by

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 257010123456789
