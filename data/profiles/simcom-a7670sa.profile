# Unsolicited line "SMS DONE" between the command and its reply; maker reduced to
# INCORPORATED; blank lines around; serial masked.
maker = SIMCom
name = A7670SA
source = https://github.com/vshymanskyy/TinyGSM/issues/739
undetectable = the unsolicited line SMS DONE comes first and is taken for the answer to ATI

ATI0: SMS DONE\n\nManufacturer: INCORPORATED\nModel: A7670SA-FASE\nRevision: A7670M7_V1.11.1\nIMEI: 000000000000000\n+GCAP: +CGSM,+FCLASS,+DS\n
