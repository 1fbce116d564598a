# Reply names the chip maker, with prefix and quotes; unsolicited "*RADIOPOWER: 1" comes
# before the echo of AT+CGMI; revision is the placeholder XX-YY-ZZ.
maker = Onda
name = DM4000
source = https://github.com/gammu/gammu/issues/841
phone = Marvell: unnamed model

AT+CGMI: +CGMI: "Marvell"
AT+CGMI:< *RADIOPOWER: 1
AT+CGMR: XX-YY-ZZ
