# No echo and no line break before the text: text CR LF OK CR LF.
maker = Nordic
name = nRF9160
source = two public pages; their addresses were not kept
phone = Nordic: nRF9160
echo = off

AT+CGMI:= Nordic Semiconductor ASA\r\nOK\r\n
AT+CGMM:= nRF9160-SICA\r\nOK\r\n
