// SPDX-License-Identifier: MIT
#include "api/at_commands.h"
#include "detection/at_command.h"
#include "detection/detection.h"
#include "session/call_frame.h"
#include "session/host_text.h"

using namespace vel;

namespace {

// The trace line for an identifier, by subject.
constexpr char kMessages[][24] = {"Manufacturer Detected !", "Phone Detected !",
                                  "Networks detected !"};

// A buffer of the host for the raw answers about a subject.
struct ResponseBuffer {
    void Fill(const TextView& text) const { FillBytes(bytes, size, text); }

    char* bytes;
    long size;
};

}  // namespace

// The results enter the session only as a whole: a detection that runs out of memory leaves
// nothing behind.
long Velmor_DetectPhoneAndNetwork(long aHandle, char* manuResponseIO, long manuResponse_sizeIO,
                                  char* phoneResponseIO, long phoneResponse_sizeIO) {
    return Framed("Velmor_DetectPhoneAndNetwork", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        Velmor& session = frame.session();
        session.ForgetDetection();
        const ResponseBuffer responses[] = {{manuResponseIO, manuResponse_sizeIO},
                                            {phoneResponseIO, phoneResponse_sizeIO},
                                            {nullptr, 0}};  // the network's are not handed out
        for (const ResponseBuffer& response : responses) {
            response.Fill({});
        }
        if (!session.IsComplete()) {
            return -1;
        }
        const auto ask = [&](Subject subject, const Attempt& attempt) {
            String answer;
            SendATCommand(session, attempt.command, answer, attempt.line);
            responses[static_cast<int>(subject)].Fill(answer);
            return answer;
        };
        const auto makeKey = [&](String& answer, const char* recipe) {
            MakeKey(session, answer, recipe);
        };
        const auto found = [&](Subject subject, const String& id) {
            frame.Line2(kMessages[static_cast<int>(subject)], id);
        };
        Detected detected = Detect({session.manufacturerIdentification, session.phoneIdentification,
                                    session.networkIdentification, session.basicDUNSettings},
                                   {ask, makeKey, found});
        const long count = CountOf(detected.settings);
        frame.Line("Number of settings", count);
        const bool nothing = count == 0 && detected.phoneId.IsEmpty();
        session.detectedPhoneId = std::move(detected.phoneId);
        session.detectedNetworkId = std::move(detected.networkId);
        session.detectedSettings = std::move(detected.settings);
        return nothing ? -1 : 0;
    });
}
