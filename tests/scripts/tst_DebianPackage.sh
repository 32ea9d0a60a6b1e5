#!/usr/bin/env bash
# Builds the Debian package from the build folder and has lintian check it:
# no error and no warning.
set -uo pipefail
build_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if ! (cd "$build_dir" && cpack -G DEB -B "$work" >"$work/cpack.log" 2>&1); then
    echo "FAIL: cpack could not build the package:"; cat "$work/cpack.log"
    exit 1
fi
package=$(ls "$work"/*.deb)
if ! lintian --fail-on error,warning --tag-display-limit 0 "$package"; then
    echo "FAIL: lintian found errors or warnings in $(basename "$package")"
    exit 1
fi
echo "PASS: lintian is content with $(basename "$package")"
