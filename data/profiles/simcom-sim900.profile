# Underscores for blanks; AT+CGMR text begins with a label glued to the value:
# "Revision:1137B03SIM900M64_ST_MMS".
maker = SIMCom
name = SIM900
source = Seeed wiki AT Command Tester page
phone = SIMCom: SIM900

AT+CGMI: SIMCOM_Ltd
AT+CGMM: SIMCOM_SIM900
AT+CGMR: Revision:1137B03SIM900M64_ST_MMS
