#!/usr/bin/env bash
# scripts/run and scripts/test pass the build's step counter through to the
# user. cmake, ctest and dpkg-query are stood in for, so nothing is built:
# the stand-in build prints two steps, and both scripts must show them.
set -uo pipefail
source_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/bin"
cat > "$work/bin/cmake" <<'STUB'
#!/usr/bin/env bash
if [ "${1:-}" = "--build" ]; then
    echo "${NINJA_STATUS:-[%f/%t] }" | sed 's/%f/1/; s/%t/2/; s/%p/50%/' | tr -d '\n'; echo "Building CXX object one.o"
    echo "[2/2] Linking CXX executable two"
fi
exit 0
STUB
printf '#!/bin/sh\nexit 0\n' > "$work/bin/ctest"
printf '#!/bin/sh\nprintf "install ok installed"\n' > "$work/bin/dpkg-query"
chmod +x "$work/bin"/*

failures=0
check() {
    local script=$1 expected_status=$2
    local output status
    output=$(cd "$source_dir" && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \
        PATH="$work/bin:$PATH" BRINDLE_BUILD_DIR="$work/build" "scripts/$script" 2>&1)
    status=$?
    if [ "$status" -ne "$expected_status" ]; then
        echo "FAIL: scripts/$script exited $status, not $expected_status:"; echo "$output"
        failures=$((failures + 1))
    fi
    for step in "[1/2 50%] Building CXX object one.o" "[2/2] Linking CXX executable two"; do
        if ! grep -qF -- "$step" <<<"$output"; then
            echo "FAIL: scripts/$script hid the build step \"$step\":"; echo "$output"
            failures=$((failures + 1))
        fi
    done
}

# With no display, run stops after the build and says why.
check run 1
check test 0
[ "$failures" -eq 0 ] && echo "PASS: both scripts show the build's steps"
exit "$failures"
