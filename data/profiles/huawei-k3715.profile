# Unknown commands ERROR; profile shows text line directly followed by OK.
maker = Huawei
name = K3715
source = faucamp/python-gsmmodem test/fakemodems.py (profiles of real modems)
phone = Huawei: K3715
echo = off

AT+CGMI:= huawei\r\nOK\r\n
AT+CGMM:= K3715\r\nOK\r\n
