#!/usr/bin/env bash
# private-session.sh COMMAND...: runs a command on a message bus of its own and with a home of its
# own in which no application is installed, so that a test neither sees nor changes the user's.
set -euo pipefail
home=$(mktemp -d "${TMPDIR:-/tmp}/orvex-test.XXXXXX")
trap 'rm -rf "$home"' EXIT
mkdir -m 700 "$home"/{data,config,cache,run,system}
export HOME=$home XDG_DATA_HOME=$home/data XDG_CONFIG_HOME=$home/config XDG_CACHE_HOME=$home/cache
export XDG_RUNTIME_DIR=$home/run XDG_DATA_DIRS=$home/system XDG_CONFIG_DIRS=$home/system
export ORVEX_TEST_HOME=$home
unset XDG_CURRENT_DESKTOP DISPLAY WAYLAND_DISPLAY ORVEX_HOST
dbus-run-session -- "$@"
