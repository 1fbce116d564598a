# Replies out of step at start: each identification command first draws a bare OK and the text
# comes one or more commands later; unsolicited +UUPSDD line; model answer is to AT+GMM; ATI
# is the type number only.
# Played: the first command draws a bare OK, and its text answers the next one.
maker = u-blox
name = SARA-G450
source = https://github.com/vshymanskyy/TinyGSM/issues/296
phone = u-blox: SARA-G450

AT+CGMI: OK
AT+GMI: u-blox
AT+CGMM: OK
AT+CGMM:< +UUPSDD
AT+GMM: SARA-G450
ATI0: SARA-G450-00C-00
