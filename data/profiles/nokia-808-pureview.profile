# One CR LF between text and OK, and an unsolicited +CMTI line right behind OK.
maker = Nokia
name = 808 PureView
source = bytes in a test; its address was not kept
phone = Nokia: 808 PureView

AT+CGMM:= \r\nNokia 808 PureView\r\nOK\r\n
AT+CGMM:> +CMTI
