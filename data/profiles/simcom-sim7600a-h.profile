# Unsolicited +CPIN: READY and SMS DONE right after the OK of ATI; without SIM "+CME ERROR:
# SIM not inserted"; extra SVN line; serial masked.
maker = SIMCom
name = SIM7600A-H
source = replies noted as observed in a modem test
phone = SIMCom: unnamed model

ATI0: Manufacturer: SIMCOM INCORPORATED\nModel: SIMCOM_SIM7600A-H\nRevision: SIM7600A-H_V1.1\nSVN: 03\nIMEI: 000000000000000\n+GCAP: +CGSM
ATI0:> \r\n+CPIN: READY\r\n\r\nSMS DONE
AT+CIMI: +CME ERROR: SIM not inserted
