# Serial masked.
maker = SIMCom
name = SIM5320A
source = doc comments with replies
phone = SIMCom: unnamed model

ATI0: Manufacturer: SIMCOM INCORPORATED\nModel: SIMCOM_SIM5320A\nRevision: SIM5320A_V1.5\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS,+ES
