# Prefix and quotes; echo on: command CR CR LF text CR LF CR LF OK CR LF (seen as bytes).
maker = AirM2M
name = Air724UG
source = public page; its address was not kept
phone = AirM2M: unnamed model

AT+CGMI: +CGMI: "AirM2M"
