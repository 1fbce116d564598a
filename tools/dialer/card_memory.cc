// SPDX-License-Identifier: MIT
#include "dialer/card_memory.h"

#ifdef VELMOR_CRYPT
#include <crypt.h>
#endif
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"
#include "support/print.h"

namespace tool {
namespace {

// The device of somebody who tries many cards must not slow down: each card is one hash.
constexpr std::size_t kMostCards = 16;

#ifdef VELMOR_CRYPT
// Salted SHA-256, as Debian's crypt(3) knows it everywhere. `setting` has method and salt, or is a
// hash.
std::string Hash(const std::string& number, const std::string& setting) {
    struct crypt_data data = {};
    const char* const hash = crypt_r(number.c_str(), setting.c_str(), &data);
    return hash == nullptr ? "" : hash;
}
std::string NewHash(const std::string& number) {
    char setting[CRYPT_GENSALT_OUTPUT_SIZE];
    const char* const made = crypt_gensalt_rn("$5$", 0, nullptr, 0, setting, sizeof setting);
    return made == nullptr ? "" : Hash(number, setting);
}
#else  // no card is remembered
std::string Hash(const std::string&, const std::string&) {
    return "";
}
std::string NewHash(const std::string&) {
    return "";
}
#endif

}  // namespace

std::string StateFolder(const std::string& folder) {
    const char* const service = std::getenv("STATE_DIRECTORY");
    const std::string usual = service == nullptr ? "/var/lib/velmor" : service;
    return folder.empty() ? Split(usual, ':')[0] : folder;
}

CardMemory::CardMemory(const std::string& folder) : path_(folder + "/cards.json") {
    std::error_code error;
    if (!std::filesystem::exists(path_, error)) {
        return;
    }
    try {
        for (const Json& card : Json::parse(ReadInput(path_))) {
            cards_.push_back({card.at("card"),
                              {card.at("access-point"), card.at("user"), card.at("dialled"),
                               card.value("types", "")}});
        }
    } catch (const std::exception& reason) {
        cards_.clear();
        problem_ = Concat(path_, ": is ignored: ", reason.what());
    }
}

std::optional<Remembered> CardMemory::Find(const std::string& number) const {
    const auto card = std::find_if(cards_.begin(), cards_.end(), [&](const Card& candidate) {
        return !number.empty() && Hash(number, candidate.hash) == candidate.hash;
    });
    return card == cards_.end() ? std::nullopt : std::optional(card->way);
}

void CardMemory::Remember(const std::string& number, const Remembered& way) {
    const std::string hash = number.empty() ? "" : NewHash(number);
    if (hash.empty()) {
        return;
    }
    cards_.erase(
        std::remove_if(cards_.begin(), cards_.end(),
                       [&](const Card& card) { return Hash(number, card.hash) == card.hash; }),
        cards_.end());
    cards_.insert(cards_.begin(), {hash, way});
    cards_.resize(std::min(cards_.size(), kMostCards));
    Json list = Json::array();
    for (const Card& card : cards_) {
        list.push_back({{"card", card.hash},
                        {"access-point", card.way.accessPoint},
                        {"user", card.way.user},
                        {"dialled", card.way.dialled},
                        {"types", card.way.types}});
    }
    const std::filesystem::path folder = std::filesystem::path(path_).parent_path();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    OutputFile(path_, true, OutputFile::Readers::kOwner).Write(list.dump(1) + "\n");
}

}  // namespace tool
