# Underscores for blanks.
maker = SIMCom
name = SIM800L
source = public page; its address was not kept
phone = SIMCom: SIM800L

AT+CGMI: SIMCOM_Ltd
AT+CGMM: SIMCOM_SIM800L
