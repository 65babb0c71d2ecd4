#!/usr/bin/env bash
# The main job: builds everything, starts the local backend with a scenario, and runs one prompt through
# the Tavrine plugin on a project in the editor stand-in. Arguments go to the host (e.g. --prompt "...",
# or --ui for the chat window in a browser).
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/.." && pwd)"
BUILD_DIR="${BUILD_DIR:-$ROOT/build}"
SCENARIO="${SCENARIO:-$ROOT/Samples/Scenarios/Demo.json}"
PORT="${PORT:-8443}"
API_KEY="${API_KEY:-local-demo-key}"

BUILD_DIR="$BUILD_DIR" "$ROOT/Scripts/build.sh" >/dev/null

DEMO_DIR="$BUILD_DIR/demo"
mkdir -p "$DEMO_DIR"

# Without PROJECT the demo plays on a fresh copy of the sample project in a git repository of its own,
# so the changes it makes never touch this checkout and source control has a work tree to stage into.
if [ -z "${PROJECT:-}" ]; then
	PROJECT="$DEMO_DIR/SampleProject"
	rm -rf "$PROJECT"
	cp -R "$ROOT/Samples/SampleProject" "$PROJECT"
	# The copy talks to this run's backend, whatever PORT it listens on.
	sed -i "s#^DevApiUrl=127.0.0.1:[0-9]*/#DevApiUrl=127.0.0.1:$PORT/#" "$PROJECT/Config/DefaultPlugin.ini"
	git -C "$PROJECT" init -q
	git -C "$PROJECT" add -A
	git -C "$PROJECT" -c user.name="Tavrine demo" -c user.email="demo@localhost" commit -q -m "Sample project"
fi
"$BUILD_DIR/Tools/LocalBackend/tavrine-backend" --scenario "$SCENARIO" \
	--cert "$DEMO_DIR/cert.pem" --key "$DEMO_DIR/key.pem" --port "$PORT" \
	--api-key "$API_KEY" --record "$DEMO_DIR/requests.jsonl" >"$DEMO_DIR/backend.log" 2>&1 &
BACKEND_PID=$!
trap 'kill "$BACKEND_PID" 2>/dev/null || true; wait "$BACKEND_PID" 2>/dev/null || true' EXIT

# The backend writes its certificate, then listens; wait for both.
for _ in $(seq 1 100); do
	if [ -s "$DEMO_DIR/cert.pem" ] && grep -q "Listening on" "$DEMO_DIR/backend.log" 2>/dev/null; then break; fi
	if ! kill -0 "$BACKEND_PID" 2>/dev/null; then cat "$DEMO_DIR/backend.log" >&2; exit 1; fi
	sleep 0.1
done

if [ "$#" -eq 0 ]; then
	set -- --prompt "Look at the project's files and tell me what you find."
fi
"$BUILD_DIR/Host/tavrine" --project "$PROJECT" --ca-file "$DEMO_DIR/cert.pem" "$@"
