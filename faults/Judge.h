#pragma once

#include "Child.h"
#include "Fault.h"
#include "Store.h"

#include <QByteArrayList>

/// Copies the shop's file to the place's folder.
void layOut(const Place &place);

/// The contents that a day goes through, the one before its first step at the beginning, and how long it takes.
struct Course {
    QByteArrayList contents;
    int microseconds = 0;
};
[[nodiscard]] Course courseOf(const Place &place, quint32 seed, int steps, const std::vector<Operation> &operations);

/// Opens the file at the place as a next start would and compares it with a course of which `acknowledged` steps were
/// told to the user; one more may stand there.
[[nodiscard]] Finding judge(const Place &place, const Course &course, int acknowledged);

/// Starts the program at the place and looks whether it has a sound, new shop.
[[nodiscard]] Finding judgeStart(const Place &place);
