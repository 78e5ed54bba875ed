#include "support/testRegistry.h"

#include <QCoreApplication>

int main(int count, char **values)
{
    QCoreApplication application(count, values);
    return TestRegistry::instance().run(application.arguments());
}
