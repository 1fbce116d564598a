# Echo on; revision with colons.
maker = Option
name = GTM382
source = https://github.com/gammu/wammu/issues/25
phone = Option: GTM382

AT+CGMM: GTM382
