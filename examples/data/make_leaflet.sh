#!/bin/sh
# make_leaflet.sh [FOLDER]: draws leaflet-v1.pdf and leaflet-v2.pdf from leaflet.ps, into the folder given or
# beside this script. Needs the Debian package "ghostscript", which brings "fonts-urw-base35" with it.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
cd "${1:-$here}"

# Ghostscript makes a file's identifiers of the moment and of the file's name as given; with both fixed, every
# run gives the same bytes.
SOURCE_DATE_EPOCH=1725256800
export SOURCE_DATE_EPOCH

for edition in 1 2; do
    gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pdfwrite \
        -dEdition=$edition \
        -r720 \
        -dCompatibilityLevel=1.4 \
        -sColorConversionStrategy=LeaveColorUnchanged \
        -dAutoRotatePages=/None \
        -dTransferFunctionInfo=/Remove \
        -dUCRandBGInfo=/Remove \
        -dPreserveHalftoneInfo=false \
        -dPreserveOverprintSettings=false \
        -sDocumentUUID=c7d0a1f2-5a3e-4c51-9b62-0d9a7f3b6e10 \
        -sOutputFile="leaflet-v$edition.pdf" \
        "$here/leaflet.ps"
done
