# The phone reports the signal before every answer.
between = ^RSSI: 18

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
