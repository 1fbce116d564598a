maker = Quectel
name = EC200A-CNTA
source = the maker's manual
phone = Quectel: unnamed model

ATI0: Quectel\nEC200A-CNTA\nRevision: EC200ACNTAR01A03M2G_OCPU
