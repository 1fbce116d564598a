# No maker in the model.
maker = SIMCom
name = SIM7020E
source = bytes that a driver expects; its address was not kept
phone = SIMCom: SIM7020E

AT+CGMM: SIM7020E
