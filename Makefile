# make              installs missing packages, builds into build/
# make test         builds with the sanitizers into build-sanitize/ and runs every test
# make window-test  runs a tour through the window on a virtual screen, using the build of make test
# make screenshots  saves pictures of the window and the pages in docs/images
# make browser-test opens the pages of --report in a browser, using the build of make test
# make many-test    resaves 200 projects at once with the commands of docs/many.md; some are killed and resumed
# make windows      builds the Windows library, its host and the command line into build-windows/bin/
# make windows-test runs every test of that build under Wine
# make install      builds and installs into PREFIX (default /usr/local), below DESTDIR if that is set
# make package      build/dist: a Debian package and a tarball; build-windows/dist: a zip for Windows
# make package-test unpacks these packages and runs their programs
# make demo         lists the sample project and resaves it in each structure into build/demo/
# make bench        compares load and resave with cp -a
# make count        prints how often a resave asks the operating system for each copied file
# make torture      faults at every call, kills, arbitrary bytes: prints what was tried, fails if anything was lost
# make check        order of folders, contracts of published headers, formatting, and clang-tidy for changed files
#                   (BASE=commit: changed since then; ALL=1: all files)
# make format       formats all sources
# make clean        removes the build folders

SHELL := /bin/bash

.PHONY: all packages test many-test window-test browser-test screenshots demo bench count torture check format clean windows windows-test
.PHONY: install package package-test

all: packages
	@cmake --preset release >/dev/null
	@cmake --build --preset release

packages:
	@tools/install_packages

test: packages
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize
	@ctest --preset sanitize

many-test: all
	@tools/many_test build

window-test: packages
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize --target test_window vestra-resave-window vestra-resave
	@tools/window_tour build-sanitize/bin/test_window

browser-test: packages
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize --target test_apps vestra-resave
	@tools/browser_test build-sanitize/bin

screenshots: packages
	@cmake --preset debug >/dev/null
	@cmake --build --preset debug --target test_window vestra-resave-window vestra-resave test_apps
	@tools/window_tour build-debug/bin/test_window docs/images
	@tools/browser_test build-debug/bin docs/images

windows:
	@tools/install_windows_packages build-windows/packages
	@cmake --preset windows >/dev/null
	@cmake --build --preset windows

windows-test: windows
	@tools/windows_test

PREFIX ?= /usr/local

install: all
	@DESTDIR="$(DESTDIR)" cmake --install build --prefix "$(PREFIX)"

package: all
	@tools/install_windows_packages build-windows/packages
	@cmake --preset windows >/dev/null
	@cmake --build --preset windows --target vestra-resave vsk_project_resave_bdl
	@rm -rf build/dist build-windows/dist
	@cpack --config build/CPackConfig.cmake >build/package.log || { cat build/package.log; false; }
	@cpack --config build-windows/CPackConfig.cmake >build-windows/package.log || { cat build-windows/package.log; false; }
	@ls build/dist/*.* build-windows/dist/*.*

package-test: package
	@tools/package_test

demo: all
	@tools/demo

bench: all
	@tools/install_packages rsync
	@cmake --build --preset release --target resave-bench
	@bench/run

count: all
	@tools/install_packages strace
	@cmake --build --preset release --target resave-bench
	@bench/count

torture: packages
	@tools/torture

sources := git ls-files '*.h' '*.cpp' '*.inc'

format:
	@$(sources) | xargs clang-format -i

check: packages
	@tools/check_layers
	@tools/host_contract --check
	@$(sources) | xargs clang-format --dry-run -Werror
	@BASE=$(BASE) tools/run_clang_tidy $(if $(ALL),all)

clean:
	@rm -rf build build-check build-debug build-fast build-sanitize build-fuzz build-mutate build-windows
