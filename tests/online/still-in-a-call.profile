# Nobody ended the call before. The phone sends PPP frames instead of answers.
call = open

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
