#include "LetterEditor.h"

#include "Answer.h"
#include "Arguments.h"
#include "Settings.h"
#include "vanoka.h"

#include <string>

using namespace vanoka;
using namespace vanoka::c;

namespace {

void addKeyRow(Reply& reply, const KeyRow& row) {
    addKey(reply, row.state);
    if (const auto note = row.note())
        reply.add(VANOKA_NOTE, note->text);
    reply.add(VANOKA_CONTROL_NAME, row.spokenControl());
}

void addEditor(Reply& reply, const LetterEditor& editor, const SinglishSettings& keys) {
    reply.add(VANOKA_GROUP, editor.kind().text);
    reply.add(VANOKA_EXAMPLE, editor.example().text, keys.activeKeysFor(editor.letter()).empty() ? 0 : 1);
    for (const KeyRow& row : editor.keyRows())
        addKeyRow(reply, row);
    reply.add(VANOKA_MESSAGE, editor.message().text, editor.addButton().isEnabled ? 1 : 0);
    reply.add(VANOKA_FOOTNOTE, editor.footnote().text);
}

} // namespace

vanoka_status vanoka_settings_editor(const vanoka_settings* settings, const char* letter,
                                     std::size_t letter_size, const char* draft, std::size_t draft_size,
                                     vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text id(letter, letter_size), typed(draft, draft_size);
        if (const auto problem = firstProblem(settings, id, typed); problem != VANOKA_OK)
            return problem;
        const auto* found = SinglishScheme::letter(id.view());
        if (!found)
            return vanoka_status{VANOKA_BAD_ARGUMENT};
        SinglishSettings& keys = settings->shared->keys;
        addEditor(reply, LetterEditor(*found, keys, std::string(typed.view())), keys);
        return vanoka_status{VANOKA_OK};
    });
}
