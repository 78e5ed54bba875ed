// What a start is measured against: a program of nothing but Qt, with one window that holds one table view.

#include "PaintWatch.h"

#include <QApplication>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int count, char **arguments)
{
    QApplication application(count, arguments);
    QWidget window;
    window.setObjectName(u"empty"_s);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(new QTableView);
    window.resize(window.screen()->availableSize());
    const PaintWatch watch(u"empty"_s, [](QWidget &) {
        std::puts("painted");
        std::fflush(stdout);
    });
    window.show();
    return QApplication::exec();
}
