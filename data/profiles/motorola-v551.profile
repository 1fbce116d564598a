# Prefix and quotes; +CGSN answer has letters before the number: "+CGSN: IMEI" then 15 digits;
# ATI0 gives maker, ATI1 IMEI, ATI2 software, ATI3 make and model, ATI4 hardware (texts not
# shown).
maker = Motorola
name = V551
source = forensics wiki page on AT commands
phone = Motorola: V551

AT+CGMM: +CGMM: "GSM900","GSM1800","GSM1900","GSM850","MODEL=V551"
