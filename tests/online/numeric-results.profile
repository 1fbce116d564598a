# The phone answers with numbers instead of OK, until ATV1.
results = numbers

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
