#pragma once

/// Tells that the item row which was to be read or written is not in the file any more.
void tellRowGone();
