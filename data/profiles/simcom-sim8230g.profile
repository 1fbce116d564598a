# Serial masked.
maker = SIMCom
name = SIM8230G
source = public page; its address was not kept
phone = SIMCom: unnamed model

ATI0: Manufacturer: SIMCOM INCORPORATED\nModel: SIMCOM_SIM8230G\nRevision: V1.0.00\nIMEI: 000000000000000\n+GCAP: +CGSM
