// One groupware during the morning: what its user does in it, and what must
// have arrived there after each step.
#pragma once

#include <string>

namespace desk::player {

class Side {
public:
    virtual ~Side() = default;

    virtual std::wstring name() const = 0;

    // The user starts it for the day; closes it; opens it again.
    virtual void start() = 0;
    virtual void close() = 0;
    virtual void reopen() = 0;

    // The text of Hublink's own log there, "" without one.
    virtual std::wstring log() = 0;

    // Closes what is open and forgets the recorded calls.
    virtual void clear() = 0;
    virtual std::wstring calls() = 0;
    virtual bool showsNothing() = 0;

    // What must have arrived.
    virtual void expectSynchronised() = 0;
    virtual void expectNothingTwice() = 0;
    virtual void expectKnownCaller() = 0; // 0123456789
    virtual void expectStranger() = 0;    // 06 55 44 33 22, Linh Nguyen
    virtual void expectMessage() = 0;     // from 0123456789 to 4711
    virtual void bringMessageToFront() = 0; // before the caller's contact, which opens after it
    virtual void expectChangedMessage() = 0;
    virtual void expectReadAgain() = 0;   // a new session, after it was opened again

    // The setting of its own that is edited during the morning; what it changes
    // is seen in the next message.
    virtual void editSetting() = 0;

    // What only its own user does.
    virtual void playOwnSteps() = 0;
};

// Whether a log has a line that ends so after its date and time.
bool hasLine(const std::wstring& log, const std::wstring& line);

}
