// SPDX-License-Identifier: MIT
#include "runtime/cancellation.h"

#include <pthread.h>

namespace vel {

bool Cancellation::isHeldOff_ = false;
int Cancellation::hostState_ = PTHREAD_CANCEL_ENABLE;

bool Cancellation::HoldOff() {
    if (isHeldOff_) {
        return false;
    }
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &hostState_);
    isHeldOff_ = true;
    return true;
}

void Cancellation::Restore() {
    isHeldOff_ = false;
    pthread_setcancelstate(hostState_, nullptr);
}

}  // namespace vel
