# Leading blank in both texts and double blanks in the model; AT+CGMR answers ERROR; AT+CPIN?
# has no OK; busy (+CME ERROR: 515) for a while after AT+CFUN=1.
maker = Wavecom
name = 900E/1800
source = faucamp/python-gsmmodem test/fakemodems.py (profiles of real modems)
phone = Wavecom: 900E/1800
echo = off

AT+CGMI: \x20WAVECOM MODEM
AT+CGMM: \x20MULTIBAND  900E  1800
AT+CGMR: ERROR
