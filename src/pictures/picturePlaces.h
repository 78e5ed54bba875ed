#pragma once

#include <QString>

#include <vector>

/// Where a machine keeps pictures: the user's home, his folder for pictures, and what is mounted.
struct PicturePlace {
    QString name;
    QString folder;
};

/// Those that are there at this moment.
[[nodiscard]] std::vector<PicturePlace> picturePlaces();
