maker = Quectel
name = RM520N-GL
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nRM520N-GL\nRevision: RM520NGLAAR01A07M4G
