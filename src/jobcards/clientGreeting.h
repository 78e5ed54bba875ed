#pragma once

#include <QString>

/// The greeting of a client at the order desk.
struct ClientGreeting {
    QString text;
    /// The client was here before: the text tells the last visit, and the balance where there is one.
    bool returning = false;
};

/// Greets the client called `title`. The last visit is the last card of the client that the database returns; its age
/// and the balance are those of the working date. A client without a card has no balance shown. Throws RuntimeError:
/// NoCurrentRecord for a title that stands nowhere, Overflow for an account above 32767.
[[nodiscard]] ClientGreeting greetingOf(const QString &title);
