// SPDX-License-Identifier: MIT
#include "simulator/controller/device_identification.h"

#include "simulator/wire/request.h"

#include <algorithm>

namespace zorvane::simulator {

namespace {

/// How much is asked for.
enum Read_Code : std::uint8_t { Basic = 1, Regular = 2, Extended = 3, Individual = 4 };

constexpr std::uint8_t lastBasic = 2;
constexpr std::uint8_t lastRegular = 0x7F;
constexpr std::uint8_t individualToo = 0x80;
constexpr std::size_t checkSum = 2;
constexpr std::size_t objectHead = 2; ///< number and length

Device_Objects whole(Device_Objects objects) {
    for (std::uint8_t basic = 0; basic <= lastBasic; ++basic)
        objects.try_emplace(basic);
    return objects;
}

/// The highest level of which there is an object.
std::uint8_t conformity(const Device_Objects& objects) {
    const std::uint8_t highest = objects.rbegin()->first;
    if (highest > lastRegular) return Extended;
    return highest > lastBasic ? Regular : Basic;
}

/// Objects up to the level that is asked for, as far as there are any of it.
std::uint8_t lastOf(std::uint8_t code) {
    if (code == Basic) return lastBasic;
    return code == Regular ? lastRegular : std::uint8_t{0xFF};
}

void append(Bytes& answer, std::uint8_t number, const std::string& text) {
    answer.push_back(number);
    answer.push_back(static_cast<std::uint8_t>(text.size()));
    answer.insert(answer.end(), text.begin(), text.end());
}

/// Everything before the objects: `more` and `next` tell where the next request goes on.
Bytes head(Bytes_View request, std::uint8_t level, std::uint8_t next, std::uint8_t count) {
    const auto more = static_cast<std::uint8_t>(next == 0 ? 0 : 0xFF);
    return {request[0],
            functionIdentification,
            identificationType,
            request[3],
            static_cast<std::uint8_t>(level | individualToo),
            more,
            next,
            count};
}

Bytes stream(const Device_Objects& objects, Bytes_View request) {
    const std::uint8_t last = lastOf(request[3]);
    const bool known = request[4] <= last && objects.contains(request[4]);
    Bytes body;
    std::uint8_t count = 0;
    std::uint8_t next = 0;
    const std::size_t room = longestFrame - checkSum - head(request, 0, 0, 0).size();
    // One that there isn't begins again with the first.
    for (auto object = objects.lower_bound(known ? request[4] : std::uint8_t{0});
         object != objects.end() && object->first <= last; ++object) {
        if (body.size() + objectHead + object->second.size() > room) {
            next = object->first;
            break;
        }
        append(body, object->first, object->second);
        ++count;
    }
    Bytes answer = head(request, conformity(objects), next, count);
    answer.insert(answer.end(), body.begin(), body.end());
    return answer;
}

} // namespace

std::variant<Bytes, int> identificationAnswer(const Device_Objects& given, Bytes_View request) {
    const Device_Objects objects = whole(given);
    if (request[3] >= Basic && request[3] <= Extended) return stream(objects, request);
    if (request[3] != Individual) return exceptionIllegalValue;
    const auto object = objects.find(request[4]);
    if (object == objects.end()) return exceptionIllegalAddress;
    Bytes answer = head(request, conformity(objects), 0, 1);
    append(answer, object->first, object->second);
    return answer;
}

} // namespace zorvane::simulator
