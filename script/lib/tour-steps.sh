#!/usr/bin/env bash
# The steps of script/tour, which prepares the folder and the display. Not for use alone.
set -euo pipefail
: "${program:?}" "${tour:?}"

stop()
{
    echo "The tour stopped: $1" >&2
    echo "In front: $(in_front)" >&2
    scrot --overwrite "$tour/stopped.png" || true
    exit 1
}

in_front() { xdotool getactivewindow getwindowname 2>/dev/null || true; }

# until_so "what is awaited" COMMAND..: tries for ten seconds.
until_so()
{
    local what=$1 try
    shift
    for ((try = 0; try < 100; ++try)); do
        if "$@"; then
            return
        fi
        kill -0 "$corvane" 2>/dev/null || stop "the program has ended; awaited was $what"
        sleep 0.1
    done
    stop "$what did not come"
}

is_in_front() { [[ $(in_front) == "$1" ]]; }
window() { until_so "the window \"$1\"" is_in_front "$1"; sleep 0.3; }
keys() { xdotool key --delay 40 "$@"; sleep 0.2; }
words() { xdotool type --delay 15 -- "$1"; sleep 0.1; }
# draw X Y X Y..: a line with the left button held.
draw()
{
    xdotool mousemove "$1" "$2" mousedown 1
    shift 2
    while (($#)); do
        xdotool mousemove "$1" "$2"
        sleep 0.05
        shift 2
    done
    xdotool mouseup 1
    sleep 0.2
}
# field TEXT: types it and moves on.
field() { words "$1"; keys Return; }
answer() { window "The Corvane"; keys "$1"; }

main="Corvane 8.2 | www.corvane.example | Made to measure"
number=0
# picture NAME: the screen as it stands.
picture()
{
    number=$((number + 1))
    sleep 0.4
    scrot --overwrite --pointer "$tour/$(printf '%02d' "$number")-$1.png"
}

# A window manager gives the windows the frames that a shop sees.
openbox >/dev/null 2>&1 &
sleep 0.5
"$program" &
corvane=$!
trap 'kill "$corvane" 2>/dev/null || true' EXIT

echo "First start: the demo shop is chosen."
window "Select Database"
picture first-start
keys Tab Return
window "$main"
picture main

echo "The masters: a client is found and looked at, a new one added; items, workers and accounts."
keys alt+m
window "Masters"
picture masters
keys alt+c
window "Clients"
words "me"
picture clients
keys Return
window "Edit Client Information"
picture edit-client
keys Escape
window "Clients"
keys alt+a
window "Add New Client"
field "Nandini O'Brien"
field "98290 12345"
keys alt+g Return
field "14, Lake View"
field "Udaipur"
field "Rajasthan"
words "30/9/1984"
picture new-client
keys alt+s
answer Return
window "Add New Client"
keys Escape
window "Clients"
words "nandini"
keys Return
window "Edit Client Information"
keys Escape
window "Clients"
keys Escape
window "Masters"
keys alt+i
window "Items"
words "sherw"
keys Return
window "Edit Item"
picture edit-item
keys Escape
window "Items"
keys Escape
window "Masters"
keys alt+w
window "Workers"
words "imr"
keys Return
window "Edit Worker Information"
picture edit-worker
keys Escape
window "Workers"
keys Escape
window "Masters"
keys alt+a
window "Accounts"
picture accounts
words "shop"
keys Return
window "Edit Account"
picture edit-account
keys Escape
window "Accounts"
keys Escape
window "Masters"
keys Escape
window "$main"

echo "A card is booked for a client found by typing, with two items."
keys alt+n
window "Create New Job Card"
keys alt+q
window "Search Client"
keys Tab
words "9829"
picture search-client
keys Escape
window "Create New Job Card"
# Back from the command that the search was called by, round to the last one.
keys shift+Tab shift+Tab shift+Tab space
window "Pending Orders Status"
picture pending-orders
keys Escape
window "Create New Job Card"
keys alt+q
window "Search Client"
words "nandini"
keys Return
window "Create New Job Card"
words "raj"
picture client-by-typing
keys Return
picture greeting
keys alt+a
window "Item"
field "sherw"
for measurement in 43 40 36 42 18 25 16; do field "$measurement"; done
picture item-measured
keys alt+o
window "Create New Job Card"
keys Return
window "Item"
field "tro"
for measurement in 42 34 40 24 18 16 11; do field "$measurement"; done
keys alt+o
window "Create New Job Card"
picture two-items

echo "An advance is taken, and the card saved."
keys Tab
field 2500
field cash
words "Wedding on the 20th"
picture advance
keys alt+s
window "The Corvane"
picture saved
keys Return
window "Edit JOB Card"
keys Escape
window "$main"

echo "A card is found by its client; the keys are shown, and the guide at its chapter."
keys F3
window "Open Job Card"
words "raj"
picture found-by-client
keys ctrl+slash
picture keys
keys F1
window "Guide"
picture guide
keys Escape
window "Open Job Card"
keys Escape
window "$main"

echo "The client brings the card back: it is opened by its number and changed."
keys F3
window "Open Job Card"
words 321
picture open-by-number
keys Return
window "Edit JOB Card"
keys ctrl+i Return
window "Item"
keys shift+Tab shift+Tab shift+Tab
picture item-again
# Round to the commands of the first image.
keys shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab space
window "Hand Note"
draw 400 250 460 210 520 240 580 330 640 350 700 300
draw 420 400 600 430 760 390
picture hand-note
keys alt+o
window "Item"
picture item-with-note
keys alt+1
window "Show Full Size Image"
picture full-size
keys Escape
window "Item"
# Before the command of the note stands that of the camera, behind those of the second image.
keys shift+Tab space
window "Capture Picture from Web Cam"
picture camera
keys Escape
window "Item"
keys Tab Tab Tab Tab space
window "Select Picture"
picture select-picture
keys Escape
window "Item"
keys alt+o
window "Edit JOB Card"
keys alt+s
answer Return
window "Edit JOB Card"

echo "The card on paper."
keys alt+p
window "Print Preview"
picture preview
keys plus plus plus Next
picture preview-larger
keys alt+s
window "Save as PDF"
words "$tour/job-card.pdf"
picture save-as-pdf
keys Return
answer Return
window "Print Preview"
keys Escape
window "Edit JOB Card"
keys Escape
window "$main"

echo "A day in the workshop: a garment is assigned, its slip and label printed."
keys alt+r
window "JOB Register"
picture job-register
keys alt+o
window "Work Overview"
picture work-overview
keys Escape
window "JOB Register"
keys alt+j
field 321/1
picture job-of-a-card
keys Tab Return
window "Assign JOB to Worker"
words "moh"
picture assign
keys alt+s
answer Return
window "Assign JOB to Worker"
keys alt+p
window "Print Preview"
picture slip
keys Escape
window "Assign JOB to Worker"
keys alt+l
window "Print Preview"
picture label
keys Escape
window "Assign JOB to Worker"
keys Escape
window "JOB Register"

echo "It is cut, and both are completed and hung up; the client is told."
keys F6
answer Return
window "JOB Register"
keys F7
answer Return
window "Kovrel"
field "Rack 3"
window "JOB Register"
keys Down F7
answer Return
window "Kovrel"
picture location
field "Rack 3"
window "JOB Register"
picture completed
keys Return
window "Assign JOB to Worker"
keys alt+m
window "The Corvane"
keys Return
window "Assign JOB to Worker"
picture told-by-sms
keys Escape
window "JOB Register"
keys Escape
window "$main"

echo "Today's trials, and what is due."
keys alt+s
window "Reports"
picture reports
keys alt+t
window "Trial Date Reminders"
keys Menu
picture trials
keys Return
window "Trial Date Reminders"
keys Escape
window "Reports"
keys alt+v
window "Delivery Register"
picture deliveries
keys Escape
window "Reports"
keys Escape
window "$main"
keys alt+1
window "Delivery Register"
picture overdue
keys Escape
window "$main"

echo "A client is wished a happy birthday, and the month's cards are exported."
keys alt+s
window "Reports"
keys alt+b
window "Birthday Reminders"
picture birthdays
keys Escape
window "Reports"
keys alt+e
window "Export Job Card Status Report"
keys alt+f
words "1/9/2011"
keys alt+h
words "$tour/data.xml"
picture export
keys alt+e
window "Corvane"
keys Return
window "Export Job Card Status Report"
keys Escape
window "Reports"
keys Escape
window "$main"

echo "The card is handed over, and the client asked what he thinks of it."
keys alt+r
window "JOB Register"
keys alt+j
field 321
keys Tab Menu
picture row-menu
keys Down Down Down Down Return
answer Return
window "JOB Register"
picture handed-over
keys Return
window "Assign JOB to Worker"
keys alt+f
window "Client Feedback"
field 5
words "Fits as if poured on."
picture feedback
keys alt+o
answer Return
window "Client Feedback"
keys Escape
window "Assign JOB to Worker"
keys Escape
window "JOB Register"
keys Escape
window "$main"
keys alt+s
window "Reports"
keys alt+r
window "Ratings"
picture ratings
keys Escape
window "Reports"

echo "The books: a bill is settled, and the month read."
keys alt+u
window "Client Dues REGISTER"
picture dues
keys ctrl+o
picture dues-order
keys 2 ctrl+o 2
picture dues-by-amount
keys Escape
window "Reports"
keys alt+a
window "Account Book"
field "nandini"
window "Account Book"
keys alt+a
window "Add New Entry"
field "rec"
field "cash"
field 900
words "In full"
picture voucher
keys alt+s
answer Return
window "Edit Entry"
keys alt+p
window "Print Preview"
picture voucher-print
keys Escape
window "Edit Entry"
keys Escape
window "Account Book"
picture statement
keys alt+p
answer Return
window "Print Preview"
picture statement-print
keys Escape
window "Account Book"
keys Escape
window "Reports"
keys alt+d
window "Day Book"
picture day-book
keys Escape
window "Reports"

echo "A worker is paid by a payroll."
keys alt+w
window "WAGES REGISTER"
field "abd"
picture wages
keys shift+Tab Right Right alt+v
picture unpaid
keys alt+p
window "Print Preview"
picture wages-print
keys Escape
window "WAGES REGISTER"
keys alt+c
window "Corvane"
picture payroll
keys Return
window "WAGES REGISTER"
keys Escape
window "Reports"

echo "The wages are handed out, and the cash book is read and printed."
keys alt+a
window "Account Book"
keys alt+g Down Tab
field "abd"
keys alt+a
window "Add New Entry"
field "pay"
field "cash"
field 2350
words "Wages of September"
keys alt+s
answer Return
window "Edit Entry"
keys Escape
window "Account Book"
picture worker-statement
keys alt+v Down Return
window "Edit Entry"
# Its letter is that of Delete too, and leads from one to the other.
keys alt+d space
window "Payroll Details"
picture payroll-details
keys Escape
window "Edit Entry"
keys Escape
window "Account Book"
keys Escape
window "Reports"
keys alt+a
window "Account Book"
keys alt+g Down Down Tab
field "cash"
picture cash-book
keys alt+p
answer Return
window "Print Preview"
picture cash-print
keys End
picture cash-print-end
keys Escape
window "Account Book"
keys Escape
window "Reports"
keys Escape
window "$main"

echo "The house: the shop's lines, its settings, a backup and a restore."
keys Tab Tab Tab Tab Tab Tab Return
window "Shop INFO"
picture shop-info
keys Escape
window "$main"
keys Tab Tab Tab Tab Tab Tab Tab Return
window "Settings"
picture settings
for page in g:general m:messages o:modem d:database b:backup; do
    keys "alt+${page%%:*}"
    picture "settings-${page#*:}"
done
keys Tab Tab Return
window "Select a Folder"
words "$HOME/Documents"
keys Return
window "Settings"
keys Tab Tab Return
window "Corvane"
keys Return
window "Settings"
sleep 1
picture settings-backup-made
keys Tab Return
window "Corvane"
keys Return
window "Settings"
sleep 1
picture settings-restored
keys Escape
window "$main"

echo "The shop is locked: who opens it must give the password."
keys Tab Tab Tab Tab Tab Tab Return
window "Shop INFO"
keys Tab Tab Tab Tab Tab space Tab
field "owner"
words "secret"
keys alt+s
answer Return
window "Shop INFO"
keys Escape
window "$main"
keys alt+a
window "About"
picture about
keys Escape
window "$main"
keys alt+F4
wait "$corvane"
"$program" &
corvane=$!
window "Corvane"
picture login
field "owner"
words "secret"
keys Return
window "$main"

[[ $(tail --bytes 16 "$tour/data.xml") == *"</jobcards>"* ]] || stop "the status report is not whole"
paper=$(pdftotext -layout "$tour/job-card.pdf" -)
for text in "Kovrel Tailors" "Job Card #" "Sherwani" "Trousers" "2,500.00" "Staple Cloth Samples here..."; do
    [[ $paper == *"$text"* ]] || stop "the printed card lacks \"$text\""
done
pdftoppm -r 90 -png -singlefile "$tour/job-card.pdf" "$tour/job-card"
