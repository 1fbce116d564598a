# Two blanks after the colon in every prefixed reply; echo off: CR LF text CR LF CR LF OK CR
# LF.
maker = Samsung
name = Wave GT-S8566
source = Ubuntu Forums thread "ModemManager-0.5 crashes with SIGABRT after receiving sms_send response" (2011-10-13)
network = AirTel
undetectable = no answer that names the phone was recorded
echo = off

AT+COPS?: +COPS:  0,0,"AirTel",0
