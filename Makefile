# make          installs missing packages, builds into build/
# make test     builds with the sanitizers into build-sanitize/ and runs every test
# make demo     lists the sample project and resaves it under each structure into build/demo/
# make check    formatting and static analysis
# make clean    removes the build folders

SHELL := /bin/bash

.PHONY: all packages test demo check format clean

all: packages
	@cmake --preset release >/dev/null
	@cmake --build --preset release

packages:
	@tools/install_packages

test: packages
	@cmake --preset sanitize >/dev/null
	@cmake --build --preset sanitize
	@ctest --preset sanitize

demo: all
	@tools/demo

sources := git ls-files '*.h' '*.cpp' '*.inc'

format:
	@$(sources) | xargs clang-format -i

check: packages
	@$(sources) | xargs clang-format --dry-run -Werror
	@cmake --preset debug >/dev/null
	@git ls-files '*.cpp' | grep -v /platform/windows/ | xargs -P 2 -n 4 clang-tidy -p build-debug --quiet

clean:
	@rm -rf build build-debug build-sanitize
