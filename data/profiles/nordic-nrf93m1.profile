# Blanks and brackets in the model.
maker = Nordic
name = nRF93M1
source = public page; its address was not kept
phone = Nordic: nRF93M1

AT+CGMM: nRF93M1-LABA-A0A (R3)
