// SPDX-License-Identifier: MIT
#include "api/trace.h"

#include "session/trace.h"

void Trace(vel::String& text) {
    Trace(text.c_str());
}

void Trace(long number) {
    vel::WriteTrace(*Velmor::getVelmor(), "", number);
}

void Trace(const char* text) {
    vel::WriteTrace(*Velmor::getVelmor(), text);
}
