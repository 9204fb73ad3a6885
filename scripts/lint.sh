#!/usr/bin/env bash
# Format, clang-tidy with a short enforced list, layers, texts. Red when it should be. `lint.sh core` runs clang-tidy
# without the Qt faces, whose headers take most of its time; `lint.sh fast` does not run it.
set -euo pipefail
failed=0
sources() { git ls-files -co --exclude-standard -- "$@" | while read -r file; do [ -f "$file" ] && printf '%s\n' "$file"; done; }

echo "lint: format"
sources 'src/*.cpp' 'src/*.h' 'src/*.mm' 'tests/*.cpp' 'tests/*.h' 'fuzz/*.cpp' 'bench/*.cpp' |
  xargs clang-format --dry-run -Werror || failed=1

echo "lint: layers and system names"
python3 scripts/check_layers.py || failed=1

echo "lint: texts"
python3 scripts/check_strings.py || failed=1

if [ "${1:-}" != fast ]; then
  echo "lint: clang-tidy"
  # The compile commands are g++'s with a precompiled header that clang cannot read.
  build=build/debug
  [ build/check/build.ninja -nt $build/build.ninja ] && build=build/check
  python3 scripts/tidy.py $build/compile_commands.json "$@" || failed=1
fi
exit $failed
