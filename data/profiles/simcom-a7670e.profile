# Errors in words; echo on.
maker = SIMCom
name = A7670E
source = https://github.com/Xinyuan-LilyGO/T-Internet-COM/issues/24
undetectable = AT+CIMI and AT+COPS? answer with errors in words, and no answer that names the phone was recorded

AT+CIMI: +CME ERROR: SIM not inserted
AT+COPS?: +CME ERROR: no network service
