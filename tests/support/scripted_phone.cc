// SPDX-License-Identifier: MIT
#include "support/scripted_phone.h"

void ScriptedPhone::Play(const Profile& profile) {
    phone_.emplace(profile);
    reads = timeout = 0;
    sent.clear();
}

long ScriptedPhone::Read(char* buffer, long count, long readTimeout) {
    ++reads;
    timeout = readTimeout;
    const std::optional<char> next = phone_->Next();
    if (!next || count < 1) {
        return 0;
    }
    *buffer = *next;
    return 1;
}

long ScriptedPhone::Send(const char* buffer, long length) {
    sent.emplace_back(buffer, static_cast<std::size_t>(length));
    return static_cast<long>(phone_->Receive(sent.back()));
}
