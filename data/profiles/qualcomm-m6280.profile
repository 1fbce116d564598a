# Needs the PIN command first; first SIM command may answer +CME ERROR: 14; profile shows text
# line directly followed by OK.
maker = Qualcomm (ZTE)
name = M6280
source = faucamp/python-gsmmodem test/fakemodems.py (profiles of real modems)
phone = ZTE: M6280
echo = off

AT+CGMI:= QUALCOMM INCORPORATED\r\nOK\r\n
AT+CGMM:= M6280\r\nOK\r\n
AT+CIMI: +CME ERROR: 14
AT+CIMI: ERROR
