// The softphone's own control commands, besides those of every partner.
//
//     user FIRSTTEXT|SECONDTEXT[|NUMBER]   the user's two name texts, and the own number
//     call FIELDS                      a new call on the line
//     hangup                           the line is idle again (no event)
//     history                          the history, one record a line as FIELDS
//     history add FIELDS               answers with the new record's identifier
//     history delete H.L
//     entries                          the address book, one record a line as FIELDS
//     entry add FIELDS                 answers with the new record's identifier
//     entry delete H.L
//     quit                             the user quits the softphone
//     subscribers                      "Object COUNT" a line
//     pending                          how many events are still to be told
//     attached                         True or False, as a client has set it
//     discovery                        "classinfo2 on" a line, and so on
//     discovery classinfo2|classinfo|typeinfo|all on|off
//     count lie N [history|entries]    told in place of the true number (of both without a word)
//     count true                       the true numbers again
//     missing Class.Member             an unknown name and an unknown identifier, until "fault off"
//     answer Class.Member VALUE        see answers.h; "answer off" forgets all
//
// For FIELDS see record_fields.h. Events are told to the subscribers after the
// answer; with "sync" as the word after call, add or delete, before it.
#pragma once

#include "desk/softphone/softphone.h"

#include <optional>

namespace desk::softphone {

class Control {
public:
    // `quit` ends the softphone; without it, only the event is raised.
    explicit Control(Softphone& softphone, std::function<void()> quit = {});

    // The answer; no value for a word that is no command of the softphone.
    // Throws std::runtime_error saying why a command cannot be carried out.
    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest);

private:
    using Handler = std::wstring (Control::*)(std::wstring_view rest);

    std::wstring user(std::wstring_view rest);
    std::wstring call(std::wstring_view rest);
    std::wstring hangUp(std::wstring_view rest);
    std::wstring history(std::wstring_view rest);
    std::wstring entries(std::wstring_view rest);
    std::wstring entry(std::wstring_view rest);
    std::wstring quit(std::wstring_view rest);
    std::wstring subscribers(std::wstring_view rest);
    std::wstring pending(std::wstring_view rest);
    std::wstring attached(std::wstring_view rest);
    std::wstring discovery(std::wstring_view rest);
    std::wstring count(std::wstring_view rest);
    std::wstring missing(std::wstring_view rest);
    std::wstring answer(std::wstring_view rest);

    Softphone& softphone_;
    const std::function<void()> quit_;
};

}
