#!/usr/bin/env bash
# The main job: starts zent-host on a free loopback port with a copy of
# examples/host/, runs a scripted administrator session against it (log on,
# list libraries, open BROKER, read and flip UsePGO through the named
# commands, update, close), prints the audit trail from the SQLite database
# and stops the host with SIGTERM.
#
#   examples/host/run-demo.sh            (after cmake --workflow --preset build)
#
# ZENT_BUILD_DIR selects another build tree (default: build/).
set -euo pipefail

root="$(cd "$(dirname "$0")/../.." && pwd)"
build="${ZENT_BUILD_DIR:-$root/build}"
host="$build/tools/host/zent-host"
session="$build/tools/wire/zent-session"
for tool in "$host" "$session"; do
  [ -x "$tool" ] || { echo "run-demo: $tool is missing; build first: cmake --workflow --preset build" >&2; exit 1; }
done
command -v sqlite3 >/dev/null || { echo "run-demo: the sqlite3 shell is missing (Debian package sqlite3)" >&2; exit 1; }

# A fresh copy, so the demo never edits the committed libraries.
work="$build/host-demo"
rm -rf "$work"
mkdir -p "$work"
cp -R "$root/examples/host/." "$work/"
rm -f "$work/run-demo.sh"

# The users file holds secret hashes: owner-only, or the host refuses it.
umask 077
printf 'demo-secret\n' > "$work/admin.secret"
{
  echo "# name:id:kind:scheme:iterations:salt:hash"
  printf 'demo-secret\n' | "$host" --make-user admin 1 1
  printf 'viewer-secret\n' | "$host" --make-user viewer 2 3
} > "$work/users"
chmod 600 "$work/users"
umask 022

echo "== zent-host --check"
"$host" --check "$work/host.ini"

echo "== starting zent-host"
"$host" --port-file "$work/port" "$work/host.ini" > "$work/host.out" 2>&1 &
pid=$!
trap 'kill -TERM "$pid" 2>/dev/null || true' EXIT
for _ in $(seq 1 100); do
  [ -s "$work/port" ] && break
  kill -0 "$pid" 2>/dev/null || { cat "$work/host.out" >&2; echo "run-demo: zent-host did not start" >&2; exit 1; }
  sleep 0.1
done
[ -s "$work/port" ] || { echo "run-demo: zent-host did not listen within 10 s" >&2; exit 1; }
port="$(cat "$work/port")"
cat "$work/host.out"

echo "== administrator session"
"$session" --port "$port" --user admin --secret-file "$work/admin.secret" --connection-port 7001 --library BROKER

echo "== audit trail ($work/audit.db)"
sqlite3 -header -column "$work/audit.db" \
  "SELECT id, time, port, user, event, field0 AS user_name,
          CASE event WHEN 'SRV_USER_BO_LOGON' THEN NULL ELSE field2 END AS library,
          field4 AS changes, length(field20) AS text_bytes FROM audit ORDER BY id;"
echo "== changes noted by the last update"
sqlite3 "$work/audit.db" \
  "SELECT field20 FROM audit WHERE event = 'SRV_USER_BO_DEALLIB_PACKET_CHANGE' ORDER BY id DESC LIMIT 1;"

echo "== stopping zent-host"
kill -TERM "$pid"
wait "$pid"
trap - EXIT
cat "$work/host.out" | tail -n 1
echo "== host log: $work/zent-host.log ($(wc -l < "$work/zent-host.log") lines)"
