#!/usr/bin/env bash
# Runs a command in a network namespace of its own with the DNS server of
# server.py (see netns.sh), for the tests that look names up: the unit tests of
# the lookups. Exit status: the command's, or 77 (skipped) where network
# namespaces are not available.
# Usage: run.sh <delay in ms> <command> [argument ...]
set -u
# Listing a test program's tests (CMake does it when building) looks nothing up.
[ "${3:-}" = --gtest_list_tests ] && exec "${@:2}"
source "$(dirname "$0")/netns.sh"
log=$(mktemp)
trap 'dns_down; rm -f "$log"' EXIT
dns_up "$1" "$log" || exit $?
shift
RULEFORGE_DNS_LOG=$log dns_exec "$@"
