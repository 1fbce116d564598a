# The network knows another password than the setting.
# exit: 8
authentication = pap mts other

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 250010123456789
