#pragma once

class QScreen;
class QWidget;

/// Before it is shown: makes a window no larger than `monitor`, with its frame. Where not even the least size of its
/// content fits, the content scrolls, and what gets the focus comes into view: the pages of tabs alone where this is
/// enough.
void fitToMonitor(QWidget &window, const QScreen &monitor);
