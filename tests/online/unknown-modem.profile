# The catalogue does not know the modem. It is dialled like the fallback phone.

AT+CGMI: Acme
AT+CGMM: X999
AT+CIMI: 410070123456789
