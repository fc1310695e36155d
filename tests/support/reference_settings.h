// Plain and slow readers of the settings lines and of the application settings file, which hold
// everything as the texts that would be written again.
#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/reference_reader.h"

namespace ravelin::test {

using Fields = std::vector<std::string>;

inline Fields referenceSplit(const std::string& text, char delimiter) {
    std::istringstream stream(text);
    Fields fields;
    for (std::string field; std::getline(stream, field, delimiter);)
        fields.push_back(field);
    return fields;
}

inline std::string referenceJoin(const Fields& fields, const std::string& delimiter) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i)
        text += (i > 0 ? delimiter : "") + fields[i];
    return text;
}

// Stores the number that the text begins with; false when there is none.
inline bool storeInt(std::string& place, const std::string& text) {
    const auto number = standardInt(text);
    if (number) place = std::to_string(number.value);
    return static_cast<bool>(number);
}

inline bool storeFloat(std::string& place, const std::string& text) {
    const auto number = standardFloat(text);
    if (!number) return false;
    if (!std::isfinite(number.value)) return true;  // converts, and is not taken over
    std::ostringstream stream;
    stream << number.value;
    place = stream.str();
    return true;
}

inline std::string referenceTargets(const std::string& text) {
    Fields targets;
    const auto items = referenceSplit(text, '|');
    for (std::size_t i = 0; i < items.size() && i < 3; ++i) {
        std::string code;
        if (storeInt(code, items[i])) targets.push_back(code);
    }
    return referenceJoin(targets, "|");
}

// What a line makes of the 36 fields of a session.
inline void referenceSessionSettings(const std::string& line, Fields& live) {
    const auto fields = referenceSplit(line, ',');
    const auto count = fields.size();
    if (count < 23) return;
    const auto flag = [&](std::size_t i) { live[i - 1] = fields[i - 1] == "1" ? "1" : "0"; };
    const auto integer = [&](std::size_t i) { return storeInt(live[i - 1], fields[i - 1]); };
    bool sound = true;
    for (std::size_t i = 1; i <= 23 && sound; ++i) {
        if ((i >= 12 && i <= 16) || i == 18) {
            flag(i);
        } else if (i == 17) {
            sound = storeFloat(live[16], fields[16]);
        } else if (i != 22) {
            sound = integer(i);
        }
    }
    if (count >= 31) {
        sound = true;
        for (std::size_t i = 24; i <= 31 && sound; ++i)
            sound = integer(i);
    }
    if (count >= 33) {
        live[31] = referenceTargets(fields[31]);
        flag(33);
    } else {
        live[31] = live[30];
        live[32] = "0";
    }
    if (count >= 35) {
        flag(34);
        flag(35);
    }
    if (count >= 36) integer(36);
}

// What a line makes of the 20 fields of a profile.
inline void referenceProfileSettings(const std::string& line, Fields& live) {
    const auto fields = referenceSplit(line, ',');
    if (fields.size() < 18) return;
    for (std::size_t i = 0; i < 18; ++i)
        if (!storeInt(live[i], fields[i])) return;
    if (fields.size() >= 20) {
        live[18] = referenceTargets(fields[18]);
        live[19] = fields[19] == "1" ? "1" : "0";
    } else {
        live[18] = live[17];
        live[19] = "0";
    }
}

// The standard conversion takes the text, and stops where the text stops.
inline bool referenceIsStrict(const std::string& text) {
    const auto first = text.find_first_of("0123456789");
    return first != std::string::npos &&
           text.find_first_not_of("0123456789", first) == std::string::npos &&
           static_cast<bool>(standardInt(text));
}

// The profile form of a session line over the live settings.
inline std::string referenceMacroSettings(const std::string& line, Fields live) {
    const auto fields = referenceSplit(line, ',');
    const auto count = fields.size();
    const auto strict = [&](std::size_t first, std::size_t last) {
        for (auto i = first; i <= last; ++i)
            if (!referenceIsStrict(fields[i - 1])) return false;
        return true;
    };
    if (count >= 23 && strict(1, 11)) std::copy_n(fields.begin(), 11, live.begin());
    if (count >= 31 && strict(24, 29) && strict(31, 31)) {
        std::copy_n(fields.begin() + 23, 6, live.begin() + 11);
        live[17] = fields[30];
    }
    if (count >= 33) {
        live[18] = fields[31];
        live[19] = fields[32] == "1" ? "1" : "0";
    } else if (count >= 23) {
        live[18] = live[17];
        live[19] = "0";
    }
    return referenceJoin(live, ",");
}

// The application settings by their keys in the file, as values that would be written again.
struct ReferenceAppSettings {
    std::map<std::string, std::string> values;
    bool positionSaved = false;
};

inline void referenceAppSettings(const std::string& bytes, ReferenceAppSettings& settings) {
    static const std::set<std::string> flags = {
        "alwaysOnTop",       "launchOnStartup", "startMinimized",
        "hotkeysEnabled",    "hotkeyLockOn",    "stopToolsWithMacro",
        "disableAnimations", "showWarnings",    "windowMaximized"};
    static const std::set<std::string> numbers = {"windowX", "windowY", "windowWidth",
                                                  "windowHeight"};
    static const std::set<std::string> panels = {"panel-ui", "panel-profile", "panel-spammer",
                                                 "panel-keyspam", "panel-tracker"};
    for (const auto& line : referenceLines(bytes, LoneReturn::kept)) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) continue;
        const auto key = line.substr(0, equals);
        const auto value = line.substr(equals + 1);
        const auto items = referenceSplit(value, ',');
        if (flags.count(key) > 0) {
            settings.values[key] = value == "1" ? "1" : "0";
        } else if (numbers.count(key) > 0) {
            if (storeInt(settings.values[key], value) && key == "windowX")
                settings.positionSaved = true;
        } else if (key == "seenWarnings" || key == "minimizedPanels") {
            std::set<std::string> kept;
            for (const auto& item : items)
                if (key == "seenWarnings" ? !item.empty() : panels.count(item) > 0)
                    kept.insert(item);
            settings.values[key] = referenceJoin({kept.begin(), kept.end()}, ",");
        } else if (key == "panelOrder") {
            Fields order;
            bool sound = true;
            for (const auto& item : items) {
                if (item.empty()) continue;
                sound = sound && panels.count(item) > 0 &&
                        std::find(order.begin(), order.end(), item) == order.end();
                order.push_back(item);
            }
            if (sound) settings.values[key] = referenceJoin(order, ",");
        }
    }
}

}  // namespace ravelin::test
