# Sourced by script/lint: the house rules that a search can see. Each rule prints the lines that break it.

# shellcheck shell=bash

# The floors from the ground up. An include goes to the own floor or down.
floors=(
    "base"
    "store"
    "devices"
    "ui"
    "reports"
    "pictures"
    "comms"
    "masters"
    "production"
    "jobcards"
    "accounts"
    "registers"
    "app"
    "main"
)

# Who may catch a failure, and why.
catchers=(
    src/store/Connection.cpp      # a write group commits what was written before the failure, and passes it on
    src/store/schema.cpp          # the creation of a database ends silently
    src/ui/Application.cpp        # the error report that ends the process
    src/app/sessionStart.cpp      # a database that cannot be opened is shown, and another one offered
    src/store/fileCheck.cpp       # a file that cannot be read is what the check tells
    src/app/checkCommand.cpp      # the same of a configuration
    src/app/backup.cpp            # a backup that cannot be looked into says why, and a file in use is told as such
    src/app/SafetyCopier.cpp      # a safety copy that cannot be made is told on the main screen, and the work goes on
    src/app/BackupPage.cpp        # a backup that fails is told in a plain box, and the file is open again
    src/app/frmSettings.cpp       # a configuration that cannot be written is told, and the session stays as it is
    src/app/programFolder.cpp     # a demo that cannot be copied is left out
    src/comms/kvSMS.cpp           # a modem that fails is told in a plain box, and the sender goes on
    src/comms/modBuildCVJS.cpp    # a status report that fails is silent
    src/reports/reportOutput.cpp  # a PDF that cannot be written where the user chose is told, and the page stays
    src/production/printAssignment.cpp  # a table of translations that cannot be read is told, and the slip is in English
    src/pictures/Thumbnails.cpp   # a picture that cannot be loaded gets a sign, and the list goes on
    src/app/MorningGlance.cpp     # a line that cannot be read says so, and the main screen goes on
    src/app/frmMain.cpp           # a wallpaper that cannot be shown is left out
)

# found PATTERN PATH..: the matching lines, none being no fault.
found()
{
    local pattern=$1
    shift
    grep -rnE --include='*.cpp' --include='*.h' -e "$pattern" -- "$@" || (($? == 1))
}

not_in()
{
    local file exceptions=()
    for file in "$@"; do
        exceptions+=(-e "^${file//./\\.}:")
    done
    grep -v "${exceptions[@]}" || (($? == 1))
}

raw_message_boxes() { found 'QMessageBox|QErrorMessage' src | not_in src/ui/platformBox.cpp src/ui/platformBox.h; }
debug_output() { found 'qDebug|std::c(out|err)|[^a-z]printf\(' src; }
digits_for_codes()
{
    found 'u"[^"]*\b([vV]?[tT]ype|[sS]tatus|DoneByWorker|MarkAsPaid|CuttingStatus|appeared|JobFinished|Nature) *(=|<>|<|>) *[0-9]' src
}
stray_catches() { found '\bcatch \(' src | not_in "${catchers[@]}"; }
graphics_below() { found '#include <Qt[A-Za-z]+/' src/base src/store | grep -v '<QtCore/' || (($? == 1)); }
# Written so that this file does not match itself.
unfinished_marks() { grep -rnIE --exclude-dir=build --exclude-dir=.git 'T[O]DO|F[I]XME|X[X]X|H[A]CK|Q[S]KIP' . || (($? == 1)); }

# Lines "file including-floor included-floor included-file" for every include between our own files.
own_includes()
{
    found '#include "' src | sed -nE 's|^src/(([^/]+)/[^:]+):[0-9]+:#include "(([^/"]+)/[^"]+)".*|\1 \2 \4 \3|p'
}

upward_includes()
{
    own_includes | awk -v floors="$(printf '%s\n' "${floors[@]}")" '
        BEGIN {
            count = split(floors, line, "\n")
            for (i = 1; i <= count; ++i) {
                names = split(line[i], name, " ")
                for (j = 1; j <= names; ++j)
                    height[name[j]] = i
            }
        }
        !($2 in height) { print "src/" $1 ": no floor is named " $2; next }
        !($3 in height) { print "src/" $1 ": no floor is named " $3 " (" $4 ")"; next }
        $2 == "devices" && $3 == "ui" || $2 == "ui" && $3 == "devices" || height[$3] > height[$2] {
            print "src/" $1 " includes " $4
        }'
}

# x.h and x.cpp are one here: what one of them includes, both need.
include_loops()
{
    own_includes | sed -E 's/\.(cpp|h)( |$)/\2/g' | awk '$1 != $4 { print $1, $4 }' | { tsort >/dev/null || true; } 2>&1
}

check_rules()
{
    check "message boxes are raised through ui/platformBox only" raw_message_boxes
    check "the program prints nothing for debugging" debug_output
    check "codes in statements come from store/codes" digits_for_codes
    check "failures are caught in the agreed places only (script/lib/rules.sh)" stray_catches
    check "base and store use QtCore only" graphics_below
    check "includes go down the floors" upward_includes
    check "files do not include each other in a loop" include_loops
    check "nothing is marked as unfinished" unfinished_marks
}
