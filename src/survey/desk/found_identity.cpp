// SPDX-License-Identifier: MIT
#include "survey/desk/found_identity.h"

#include "compare/controller_reading.h"

#include <algorithm>

namespace zorvane::survey {

Found_Identity identityOfFound(std::int32_t unit, const std::vector<Known_Template>& templates,
                               const With_Reader& withReader) {
    using compare::Verdict;
    std::size_t others = 0;
    for (const Known_Template& known : templates) {
        const Identity_Section section = readIdentity(known.text);
        Verdict verdict = Verdict::Cant_Tell;
        withReader(known, [&](Unit_Reader& reader) {
            verdict = compare::askWhoIsThere({*known.document, section, reader, unit}).identity.verdict;
        });
        if (verdict == Verdict::Is) return {verdictWord(verdict), known.document->Controller_Model};
        if (verdict == Verdict::Isnt) ++others;
    }
    const bool isNone = !templates.empty() && others == templates.size();
    return {verdictWord(isNone ? Verdict::Isnt : Verdict::Cant_Tell), {}};
}

} // namespace zorvane::survey
