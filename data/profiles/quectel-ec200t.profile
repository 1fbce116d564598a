# Echo off.
maker = Quectel
name = EC200T
source = public page; its address was not kept
undetectable = without echo the answer to ATI begins with an empty line, and the library finds no line
echo = off

ATI0: Quectel\nEC200T\nRevision: EC200TEUHAR05A01M16
