# Prefix and quotes; revision "AirM2M_780EP_V1010_LTE_AT"; RDY and ^boot lines after reset.
maker = AirM2M
name = Air780EP
source = public page; its address was not kept
phone = AirM2M: unnamed model

AT+CGMI: +CGMI: "AirM2M"
