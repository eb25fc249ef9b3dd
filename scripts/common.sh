# Read by the other scripts with ".": where the tree is, what is printed, and what is said when a step fails.

set -Eeuo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

script="scripts/$(basename "$0")"
step="starting"
hint="The lines above say what went wrong."

# step <what is done now> [<what to do when it fails>]
step() {
  step="$1"
  hint="${2:-The lines above say what went wrong.}"
  echo "== $step"
}

failed() {
  echo "$script: failed at \"$step\". $hint" >&2
}
trap failed ERR

# install_dependencies [--pictures | --doc | --fuzz]: installs what is missing; says itself what to do when it cannot.
install_dependencies() {
  step="installing packages"
  hint="What to do is said above."
  scripts/install-dependencies "$@"
}

# build_in <directory> <target> <options of cmake...>: configures and builds what is out of date.
build_in() {
  local directory="$1" target="$2"
  shift 2
  step "Configuring $directory" "If the build directory was made by another compiler or tree, remove it: rm -r $directory"
  cmake -S . -B "$directory" -G Ninja "$@" --log-level=WARNING
  step "Building $directory" "The first error above names the source file to mend."
  cmake --build "$directory" --target "$target"
}

# Builds the viewer; $viewer is its program.
build_viewer() {
  build_in build/demo quillform-view -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUILLFORM_BUILD_TESTS=OFF
  viewer=build/demo/tools/view/quillform-view
}

# take_pictures <directory>: pictures of both forms of the showcase. The window is drawn without a display; the
# scene needs OpenGL and gets a display that nobody sees.
take_pictures() {
  mkdir -p "$1"
  step "Taking the picture of the window"
  "$viewer" --screenshot "$1/showcase-window.png" examples/showcase.iv
  step "Taking the picture of the scene"
  on_hidden_display "$viewer" --scene --screenshot "$1/showcase-scene.png" examples/showcase.iv
}

# The command line that runs a program under an X server of its own.
hidden_display=(xvfb-run --auto-servernum --server-args "-screen 0 1280x1024x24")
on_hidden_display() {
  "${hidden_display[@]}" "$@"
}
