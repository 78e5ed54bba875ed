#pragma once

#include <QString>

#include <functional>
#include <vector>

/// What became of one try.
struct Finding {
    enum What { Nothing, Lost, Half, CannotOpen };
    What what = Nothing;
    QString words;
};

/// Where tries take place.
struct Place {
    /// The shop's file and what else is made once, to be copied from.
    QString base;
    /// A folder that a try has for itself, empty.
    QString folder;
    quint32 seed = 1;
};

/// A kind of fault: tries without end, or a list of them.
struct FaultKind {
    QString name;
    /// Its part of the time, against the others'.
    int weight = 1;
    /// How many different tries there are; 0 where there is no end.
    int tries = 0;
    std::function<Finding(int index, const Place &place)> attempt;
};

/// Those that are given a place make there, once, what all their tries need.
[[nodiscard]] std::vector<FaultKind> killKinds();
[[nodiscard]] std::vector<FaultKind> failingCallKinds(const Place &place);
[[nodiscard]] std::vector<FaultKind> powerCutKinds();
[[nodiscard]] std::vector<FaultKind> badFileKinds(const Place &place);
[[nodiscard]] std::vector<FaultKind> twoProgramKinds();

/// Kinds that must find something: of saves without their group, and of a store that does not wait for the disk.
[[nodiscard]] FaultKind killsOfLooseSaves();
[[nodiscard]] FaultKind failingCallsOfLooseSaves(const Place &place);
[[nodiscard]] FaultKind powerCutsWithoutSync();
