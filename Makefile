# Front door. Every goal first installs what is missing (scripts/setup.sh), so a fresh machine needs git and make alone.

.PHONY: run build test bench fuzz asan tidy format windows test-windows screenshots-windows package setup clean gallery

run: build
	scripts/run.sh

build: setup
	cmake --preset release
	cmake --build --preset release

test: build
	scripts/test.sh

gallery: build
	scripts/gallery.sh

bench: build
	build/bench/ovaline_bench

asan: setup
	cmake --preset asan
	cmake --build --preset asan
	OVALINE_BUILD=build-asan scripts/test.sh

fuzz: setup
	cmake --preset asan
	cmake --build --preset asan --target control_fuzz
	build-asan/fuzz/control_fuzz 120

windows:
	scripts/setup.sh windows
	cmake --preset windows-i686
	cmake --build --preset windows-i686 --target Norvel_Ovaline ovaline
	cmake --preset windows-x86_64
	cmake --build --preset windows-x86_64 --target Norvel_Ovaline ovaline

test-windows: build
	scripts/test_windows.sh

screenshots-windows: windows
	scripts/setup.sh screenshots
	scripts/setup_wine32.sh
	tests/windows/screenshots.sh

package: build windows
	scripts/setup.sh package
	scripts/package.sh
	scripts/package_windows.sh

tidy: build
	scripts/setup.sh tidy
	git ls-files '*.cpp' | grep -vE '^(tests|bench|platform/windows)/' | xargs -P2 -n4 clang-tidy -p build --quiet

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

setup:
	scripts/setup.sh

clean:
	rm -rf build build-* out
