# No capability line shown.
maker = SIMCom
name = A7670G
source = public page; its address was not kept
phone = SIMCom: unnamed model

ATI0: Manufacturer: SIMCOM INCORPORATED\nModel: A7670G-LLSE\nRevision: A124B01A7670M7
