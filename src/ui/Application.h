#pragma once

#include <QApplication>

#include <functional>

class RuntimeError;

/// The application object. Its `notify` is where a RuntimeError that nobody was meant to deal with ends up, and where a
/// `Screen` sees the keys before the control that has the focus.
class Application : public QApplication {
    Q_OBJECT

public:
    using FailureHandler = std::function<void(const RuntimeError &)>;

    Application(int &argumentCount, char **arguments);

    /// What happens to an uncaught failure. Without one it is shown in a critical box. Where it is safe
    /// (`RuntimeError::canGoOn`) the user then goes on with the screen in front; else the box holds the whole report
    /// and the process ends with exit code 1. An empty function brings that back. Failures while the handler runs are
    /// dropped.
    void setFailureHandler(const FailureHandler &handler) { m_handler = handler; }

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void handle(const RuntimeError &error);

    FailureHandler m_handler;
    bool m_handling = false;
};
