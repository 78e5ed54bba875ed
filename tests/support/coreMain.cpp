#include "support/testRegistry.h"

#include <QCoreApplication>

int main(int count, char **values)
{
    const QCoreApplication application(count, values);
    return TestRegistry::instance().run(QCoreApplication::arguments());
}
