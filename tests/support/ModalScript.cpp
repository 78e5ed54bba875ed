#include "support/ModalScript.h"

#include "support/screenDriver.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int lookEvery = 5;
constexpr int timeLimit = 20000;

} // namespace

ModalScript::ModalScript()
{
    m_sinceProgress.start();
    // Not within the timer's own event: an action may run a nested loop, in which the looking goes on.
    connect(&m_timer, &QTimer::timeout, this, &ModalScript::look, Qt::QueuedConnection);
    m_timer.start(lookEvery);
}

ModalScript::~ModalScript()
{
    for (const Step &step : m_steps)
        QTest::qFail(qPrintable(u"%1 did not come up"_s.arg(step.className)), __FILE__, __LINE__);
}

ModalScript &ModalScript::expect(const QString &className, const Action &action)
{
    m_steps.push_back({className, action});
    m_sinceProgress.restart();
    return *this;
}

ModalScript &ModalScript::expectText(const QString &className, const char *label, const QString &text, Qt::Key answer)
{
    return expect(className, [label, text, answer](QWidget &window) {
        const QString shown = driver::control<QLabel>(window, label).text();
        driver::press(answer);
        QCOMPARE(shown, text);
    });
}

ModalScript &ModalScript::expectMessage(const QString &text, Qt::Key answer)
{
    return expectText(u"frmMsg"_s, "lblMsg", text, answer);
}

ModalScript &ModalScript::expectBox(const QString &text)
{
    return expectText(u"QMessageBox"_s, "qt_msgbox_label", text, Qt::Key_Return);
}

void ModalScript::look()
{
    m_met.removeIf([](const QPointer<QWidget> &window) { return !window || !window->isVisible(); });
    QWidget *const window = QApplication::activeModalWidget();
    if (m_givenUp) {
        if (window)
            window->close();
        return;
    }
    const bool isNew = window && !m_met.contains(window);
    if (isNew && window->isActiveWindow())
        return meet(*window);
    if (isNew)
        window->activateWindow();
    const bool waits = window || !m_steps.empty();
    if (waits && m_sinceProgress.hasExpired(timeLimit))
        giveUp(window ? u"%1 stays open"_s.arg(QLatin1StringView(window->metaObject()->className()))
                      : u"nothing comes up"_s);
    if (!waits)
        m_sinceProgress.restart();
}

void ModalScript::meet(QWidget &window)
{
    m_met += &window;
    m_sinceProgress.restart();
    const auto className = QLatin1StringView(window.metaObject()->className());
    if (m_steps.empty() || m_steps.front().className != className) {
        const QString awaited = m_steps.empty() ? u"nothing"_s : m_steps.front().className;
        return giveUp(u"%1 came up, awaited was %2"_s.arg(className, awaited));
    }
    const Action action = m_steps.front().action;
    m_steps.pop_front();
    action(window);
    m_sinceProgress.restart();
}

void ModalScript::giveUp(const QString &why)
{
    QStringList texts;
    if (const QWidget *window = QApplication::activeModalWidget()) {
        const auto labels = window->findChildren<QLabel *>();
        for (const QLabel *label : labels)
            texts += label->text().left(200);
    }
    m_givenUp = true;
    m_steps.clear();
    QTest::qFail(qPrintable(why + u" ("_s + texts.join(u" | "_s) + u')'), __FILE__, __LINE__);
}
