# Answer to ATI5; the text ends in ERROR instead of OK; serial masked.
maker = Sierra Wireless
name = USB 305
source = public page; its address was not kept
undetectable = only the answer to ATI5 was recorded, and the library does not send ATI5

ATI5:= \r\nManufacturer: Sierra Wireless, Inc.\r\nModel: USB 305\r\nRevision: I2_0_0_11ap CARMD-EN000104 2010/03/12 15:12:01\r\nIMEI: 000000000000000\r\nERROR\r\n
