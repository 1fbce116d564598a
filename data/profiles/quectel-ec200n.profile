maker = Quectel
name = EC200N
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nEC200N\nRevision: EC200NCNAAR05A03M16
