maker = Quectel
name = EC200U
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nEC200U\nRevision: EC200UCNAAR02A10M08
