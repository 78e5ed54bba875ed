#pragma once

#include <QStringList>

/// The text of each page of a PDF file, as another program reads it. Fails the test where that can't be done.
[[nodiscard]] QStringList pdfText(const QString &path);
