#!/bin/sh
# Writes the schema with tavuhost --schema and validates every interface file
# of examples/ against it with xmllint. The example module is loaded, so the
# schema knows the type it adds and the keys it lists.
# Exit 77 (skipped) when xmllint is not installed.
host=$1 examples=$2 scratch=$3
command -v xmllint >/dev/null || exit 77
mkdir -p "$scratch" || exit 1
"$host" --schema --module colorswatch > "$scratch/tavu.xsd" || exit 1
status=0
for file in $(find "$examples" -name '*.xml' | sort); do
    verdict=$(xmllint --recover --noout --schema "$scratch/tavu.xsd" "$file" 2>&1 | tail -n 1)
    case "$verdict" in
    *" validates") ;;
    *) echo "$file: $verdict"; status=1 ;;
    esac
done
exit $status
