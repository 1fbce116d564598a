// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "diff/diff.h"
#include "diff/print.h"

using namespace tool;

namespace {

using Lines = std::vector<std::string>;

// An operator of a made-up catalogue: its keys, and its settings by name.
struct Operator {
    std::string name;
    Lines keys;
    std::vector<std::pair<std::string, std::string>> settings;  // name, and APN and user
};

// A phone, its answer, and its dial string.
struct Device {
    std::string name, answer, dial;
};

// A made-up catalogue and its edits, with what is to be told about each.
class World {
  public:
    explicit World(unsigned seed) : random_(seed) {
        for (int i = 0; i < 40; ++i) {
            operators_.push_back(NewOperator());
            devices_.push_back({"P" + Next(), "A" + Next(), "D" + Next()});
        }
    }

    // The source, with identifiers by chance and the tables' rows in any order that decides
    // nothing.
    std::string Source() {
        std::vector<int> ids(operators_.size() + devices_.size());
        std::generate(ids.begin(), ids.end(), [n = 0]() mutable { return ++n; });
        std::shuffle(ids.begin(), ids.end(), random_);
        Lines names, keys, settings, phones, answers, dials;
        for (std::size_t i = 0; i < operators_.size(); ++i) {
            const std::string id = std::to_string(ids[i]);
            names.push_back(Concat(id, "#", operators_[i].name, "#GPRS"));
            for (const std::string& key : operators_[i].keys) {
                keys.push_back(Concat(key, "#", id));
            }
            std::string block;
            for (const auto& [name, rest] : operators_[i].settings) {
                block +=
                    Concat(block.empty() ? "" : "#\nE#", random_(), "#", id, "#", rest, "#", name);
            }
            settings.push_back(block);
        }
        for (std::size_t i = 0; i < devices_.size(); ++i) {
            const std::string id = std::to_string(ids[operators_.size() + i]);
            phones.push_back(Concat(id, "#", devices_[i].name, "#7"));
            answers.push_back(Concat("7#", devices_[i].answer, "#", id));
            dials.push_back(Concat(id, "#GPRS#", devices_[i].dial));
        }
        return "#$_DATABASE_BEGIN_$#W#1#\n" + Table("Manufacturers#ID#Name", {"7#Maker"}) +
               Table("Networks#ID#Name#NetworkType", names) +
               Table("NetworkIdentification#Response(AT+COPS)#NetworkID", keys) +
               Table("BasicDUNSettings#ID#NetworkID#APN#User#Name", settings) +
               Table("Phones#ID#Name#ManufacturerID", phones) +
               Table("PhoneIdentification#ManufacturerID#Response(AT+CGMM)#PhoneID", answers) +
               Table("BasicDUNForPhone#PhoneID#NetworkType#DialString", dials) +
               "#$_DATABASE_END_$#\n";
    }

    // Edits each operator and phone at most once. Returns what is to be told.
    Lines Edit() {
        told_.clear();
        std::vector<Operator> kept;
        for (Operator& one : operators_) {
            if (EditOperator(one)) {
                kept.push_back(one);
            }
        }
        for (Device& device : devices_) {
            const std::string phone = "changed phone Maker: " + device.name + "/";
            if (const auto choice = random_() % 6; choice == 0) {
                told_.push_back(phone + "gone answer Maker: " + device.answer);
                device.answer = "A" + Next();
                told_.push_back(phone + "added answer Maker: " + device.answer);
            } else if (choice == 1) {
                const std::string old = std::exchange(device.dial, "D" + Next());
                told_.push_back(
                    Concat(phone, "changed dial-up row GPRS DialString ", old, " ", device.dial));
            }
        }
        for (int i = 0; i < 3; ++i) {
            kept.push_back(NewOperator());
            TellWhole("added", kept.back());
        }
        operators_ = kept;
        std::sort(told_.begin(), told_.end());
        return told_;
    }

  private:
    std::string Next() { return std::to_string(++last_); }

    Operator NewOperator() {
        Operator one{"N" + Next(), {}, {}};
        for (unsigned i = 0; i < 2 + random_() % 5; ++i) {
            one.keys.push_back((i == 1 ? "K" : "") + Next());
        }
        for (unsigned i = 0; i < 3 + random_() % 3; ++i) {
            one.settings.emplace_back("S" + Next(), "apn" + Next() + "#u" + Next());
        }
        return one;
    }

    std::string Table(const std::string& head, Lines rows) {
        std::shuffle(rows.begin(), rows.end(), random_);
        std::string text = "E#$_TABLE_BEGIN_$#" + head + "#\n";
        for (const std::string& row : rows) {
            text += Concat("E#", row, "#\n");
        }
        return text + "E#$_TABLE_END_$#\n";
    }

    static std::string KeyName(const std::string& key) {
        return (key[0] == 'K' ? " name key " : " number key ") + key;
    }
    static std::string SettingName(const std::pair<std::string, std::string>& setting) {
        return " setting " + setting.first + " (" +
               setting.second.substr(0, setting.second.find('#')) + ")";
    }

    void TellWhole(const std::string& kind, const Operator& one) {
        const std::string network = kind + " network " + one.name;
        told_.push_back(network);
        for (const std::string& key : one.keys) {
            told_.push_back(Concat(network, "/", kind, KeyName(key)));
        }
        for (const auto& setting : one.settings) {
            told_.push_back(Concat(network, "/", kind, SettingName(setting)));
        }
    }

    // Returns whether the operator is still there.
    bool EditOperator(Operator& one) {
        const std::string network = "changed network " + one.name + "/";
        auto& setting = one.settings[1];
        const std::string apn = setting.second.substr(0, setting.second.find('#'));
        const std::string user = setting.second.substr(apn.size() + 1);
        switch (random_() % 12) {
            case 0:
                TellWhole("gone", one);
                return false;
            case 1:
                told_.push_back(network + "gone" + KeyName(one.keys.back()));
                one.keys.pop_back();
                break;
            case 2:
                one.keys.push_back(Next());
                told_.push_back(network + "added" + KeyName(one.keys.back()));
                break;
            case 3: {
                const std::string old = std::exchange(one.name, "N" + Next());
                told_.push_back("changed network " + one.name + " Name " + old + " " + one.name);
                break;
            }
            case 4:
                setting.second = apn + "#u" + Next();
                told_.push_back(network + "changed" + SettingName(setting) + " User " + user + " " +
                                setting.second.substr(apn.size() + 1));
                break;
            case 5:
                setting.second = "apn" + Next() + "#" + user;
                told_.push_back(network + "changed" + SettingName(setting) + " APN " + apn + " " +
                                setting.second.substr(0, setting.second.find('#')));
                break;
            case 6: {
                const std::string old = std::exchange(setting.first, "S" + Next());
                told_.push_back(network + "changed" + SettingName(setting) + " Name " + old + " " +
                                setting.first);
                break;
            }
            case 7:
                told_.push_back(network + "gone" + SettingName(setting));
                one.settings.erase(one.settings.begin() + 1);
                break;
            case 8:
                one.settings.emplace_back("S" + Next(), "apn" + Next() + "#");
                told_.push_back(network + "added" + SettingName(one.settings.back()));
                break;
            case 9:
                std::rotate(one.settings.begin(), one.settings.begin() + 1, one.settings.end());
                told_.push_back(network + "changed" + SettingName(one.settings.back()) + " before" +
                                SettingName(one.settings.front()).substr(8) + " (end)");
                break;
            default:
                break;
        }
        return true;
    }

    std::mt19937 random_;
    int last_ = 10000;
    std::vector<Operator> operators_;
    std::vector<Device> devices_;
    Lines told_;
};

Difference Between(const std::string& old, const std::string& fresh) {
    Findings ignored;
    return Compare(Content(ReadCatalogue(old, ignored)), Content(ReadCatalogue(fresh, ignored)));
}

// Each change as a line; those of parts begin with what they are parts of.
void Flatten(const Json& changes, const std::string& before, Lines& lines) {
    for (const Json& change : changes) {
        const std::string kind = change["change"];
        const std::string line = before + kind + " " + change["what"].get<std::string>() + " " +
                                 change["name"].get<std::string>();
        if (kind != "changed") {
            lines.push_back(line);
        }
        for (const Json& value : kind == "changed" ? change.value("values", Json()) : Json()) {
            lines.push_back(line);
            for (const char* member : {"name", "old", "new"}) {
                lines.back() += " " + value[member].get<std::string>();
            }
        }
        Flatten(change.value("parts", Json()), line + "/", lines);
    }
}

TEST(Diff, TellsRandomEditsAndNothingElse) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        World world(seed);
        const std::string old = world.Source(), again = world.Source();
        const Difference renumbered = Between(old, again);
        EXPECT_TRUE(renumbered.changes.empty());
        EXPECT_EQ(renumbered.renumberings.size(), 3U);  // phones, networks, settings
        const Lines expected = world.Edit();
        Lines lines;
        const Json json = DescribeDifference(Between(old, world.Source()));
        Flatten(json["changes"], "", lines);
        std::sort(lines.begin(), lines.end());
        EXPECT_EQ(lines, expected);
        const auto keys = json["counts"]["number keys"];
        EXPECT_EQ(keys["old"].get<long>() + keys["added"].get<long>() - keys["gone"].get<long>(),
                  keys["new"].get<long>());
    }
}

}  // namespace
