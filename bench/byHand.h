#pragma once

#include <QString>

#include <string_view>

struct sqlite3_stmt;

/// The same work as a good programmer would do it with the engine's own interface: a statement prepared once, values
/// bound, rows stepped through.
namespace byHand {

/// A statement of the engine's own language, prepared on the handle that `DE` has open, so that the file, the cipher
/// settings and what is in the engine's cache are the same as for the program's own statements. What the program put
/// in place of the engine's own functions there, sum and like, is to be kept out of it. Each fault is a RuntimeError
/// (Engine). REQUIRES: the connection is open for as long as it lives.
class Statement {
public:
    explicit Statement(std::string_view sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    /// Binds the values in their order, from the first place on, and runs the statement to its end.
    template <typename... Values>
    void run(const Values &...values)
    {
        bindAll(values...);
        while (step()) { }
        reset();
    }
    template <typename... Values>
    void bindAll(const Values &...values)
    {
        int place = 0;
        (bind(++place, values), ...);
    }

    /// Moves to the next row; false when there is none.
    bool step();
    void reset();

    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] double number(int column) const;
    /// Good until the next step.
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] sqlite3_stmt *handle() const { return m_handle; }

private:
    void bind(int place, qint64 value);
    void bind(int place, int value) { bind(place, static_cast<qint64>(value)); }
    void bind(int place, double value);
    void bind(int place, std::string_view value);
    void bind(int place, const char *value) { bind(place, std::string_view(value)); }
    void bind(int place, std::nullptr_t);
    void check(int code) const;

    sqlite3_stmt *m_handle = nullptr;
};

} // namespace byHand
