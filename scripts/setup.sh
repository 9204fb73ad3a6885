# Sourced by ./dev: packages, configuring and building.

# Installs what is missing. A stamp beside the build remembers the list that was last satisfied.
ensure_packages() {
  ensure_system_packages
  ensure_mathjax
}

ensure_system_packages() {
  local list=packaging/debian-packages.txt stamp=build/packages.stamp
  if [ "$(uname -s)" = Darwin ]; then
    brew bundle --quiet --file packaging/Brewfile
    return
  fi
  if [ -f "$stamp" ] && cmp -s "$list" "$stamp"; then return; fi
  if ! command -v apt-get >/dev/null; then
    echo "dev: no apt-get here; install what $list names yourself" >&2
    return
  fi
  local missing=() package
  while read -r package; do
    case "$package" in '' | '#'*) continue ;; esac
    # A Node.js from elsewhere brings its own npm, and the distribution's would conflict with it.
    if [ "$package" = npm ] && command -v npm >/dev/null; then continue; fi
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
  done <"$list"
  if [ ${#missing[@]} -gt 0 ]; then
    echo "dev: installing ${#missing[@]} packages" >&2
    local root=()
    [ "$(id -u)" = 0 ] || root=(sudo)
    "${root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >build-packages.log 2>&1 || {
      tail -n 20 build-packages.log >&2
      return 1
    }
    rm -f build-packages.log
  fi
  mkdir -p build
  cp "$list" "$stamp"
}

# MathJax, for equations: two packages by the lock file, into build/mathjax. Without npm or a network everything
# else is built; the program then says at an equation what is missing.
ensure_mathjax() {
  local from=resources/mathjax to=build/mathjax
  if [ -f "$to/stamp" ] && cmp -s "$from/package-lock.json" "$to/stamp"; then return; fi
  if ! command -v npm >/dev/null; then
    echo "dev: no npm here; equations will not work" >&2
    return
  fi
  echo "dev: installing MathJax" >&2
  # Into a folder beside it, so that what is there stays when the network is away.
  local new=$to.new
  rm -rf "$new"
  mkdir -p "$new"
  cp "$from/package.json" "$from/package-lock.json" "$new/"
  if (cd "$new" && timeout 300 npm ci --ignore-scripts --omit=dev --no-audit --no-fund >install.log 2>&1); then
    cp "$from/package-lock.json" "$new/stamp"
    rm -rf "$to"
    mv "$new" "$to"
  else
    tail -n 5 "$new/install.log" >&2
    echo "dev: MathJax could not be installed; equations will not work" >&2
  fi
}

# configure PRESET: only when it has not been done, or when the presets changed.
configure() {
  local folder=build/$1
  mkdir -p build
  if [ ! -f "$folder/build.ninja" ] || [ CMakePresets.json -nt "$folder/CMakeCache.txt" ]; then
    cmake --preset "$1" >"build/$1-configure.log" 2>&1 || {
      tail -n 40 "build/$1-configure.log" >&2
      return 1
    }
  fi
}

# build PRESET TARGET…
build() {
  local preset=$1
  shift
  configure "$preset"
  cmake --build "build/$preset" --target "$@" -- --quiet
}
