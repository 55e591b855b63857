# shellcheck shell=bash
# A printer that makes PDF files, of a CUPS server that nobody else sees. To be sourced beside wine.sh:
#
#     trap stop_printer EXIT
#     start_printer build/printer     # "Pages": its jobs become build/printer/pages/1.pdf, 2.pdf ...

# Starts the server. PRINTED_PAGES is the folder of what was printed: 1.pdf, and in 1.html its words and where they
# stand.
start_printer() {
    local folder
    folder=$(realpath --canonicalize-missing "$1")
    rm -rf "$folder"
    mkdir -p "$folder"/{bin/backend,pages,ppd,work/temp}
    ln -s /usr/lib/cups/{daemon,filter} "$folder/bin"
    socket_folder=$(mktemp --directory) # short, as the name of a socket has to be
    export PRINTED_PAGES=$folder/pages CUPS_SERVER=$socket_folder/cups

    describe_server "$folder"
    describe_printer "$folder"
    PATH=$PATH:/usr/sbin cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" >"$folder/cupsd.log" 2>&1 &
    printer_process=$!
    for _ in {1..300}; do
        if [[ -S $CUPS_SERVER ]] || ! kill -0 "$printer_process" 2>/dev/null; then break; fi
        sleep 0.1
    done
    [[ -S $CUPS_SERVER ]] || fail "the printer does not start; see $folder"
}

describe_server() {
    cat >"$1/cups-files.conf" <<END
ServerRoot $1
ServerBin $1/bin
CacheDir $1/work/cache
StateDir $1/work/state
RequestRoot $1/work/spool
TempDir $1/work/temp
AccessLog $1/work/access.log
ErrorLog $1/error.log
PageLog $1/work/page.log
END
    cat >"$1/cupsd.conf" <<END
Listen $CUPS_SERVER
Browsing No
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
END
}

# PostScript goes unfiltered to the backend, which a server started by root runs as root, not as a user who may not
# come into the folder, because nobody else may run it.
describe_printer() {
    cat >"$1/printers.conf" <<END
<DefaultPrinter Pages>
DeviceURI pages:/
State Idle
Accepting Yes
</Printer>
END
    cat >"$1/pages.drv" <<END
#include <font.defs>
#include <media.defs>
DriverType ps
Manufacturer "Generic"
ModelName "Pages"
Version 1.0
Filter application/postscript 0 -
Font *
HWMargins 12 12 12 12
*MediaSize A4
MediaSize Letter
*Resolution - 8 0 0 0 "300dpi/300 dpi"
PCFileName "Pages.ppd"
END
    ppdc -d "$1/ppd" "$1/pages.drv" >"$1/work/ppdc.log" 2>&1

    # Its arguments are the job, the user, the title, the copies, the options, and the file.
    cat >"$1/bin/backend/pages" <<END
#!/bin/sh
[ \$# -gt 0 ] || exit 0
made="$1/work/\$1"
ps2pdf "\$6" "\$made.pdf" && pdftotext -bbox "\$made.pdf" "\$made.html" &&
    mv "\$made.pdf" "\$made.html" "$1/pages"
END
    chmod 700 "$1/bin/backend/pages"
}

stop_printer() {
    if [[ -n ${printer_process:-} ]]; then
        kill "$printer_process" 2>/dev/null || true
        wait "$printer_process" 2>/dev/null || true
    fi
    if [[ -n ${socket_folder:-} ]]; then rm -rf "$socket_folder"; fi
}
