# Echo in small letters, as the command was sent.
maker = Quectel
name = EC200D
source = public page; its address was not kept
phone = Quectel: unnamed model

ATI0: Quectel\nEC200D\nRevision: EC200DCNLAR02A01M64
