# KRT — top-level entry points. Everything below works as root on a fresh Debian machine.
SHELL := /bin/bash
.SHELLFLAGS := -eu -o pipefail -c

BUILD      ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
BUILD_WINDOWS ?= build-windows
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 60

# Debian packages the build, the tests and the benchmarks need (poppler-utils: the export tests read
# PDFs back with pdftoppm and check them with pdffonts; they skip those checks without it).
PACKAGES := g++ cmake make pkg-config qt6-base-dev qt6-svg-dev libgl-dev libgtest-dev libgmock-dev libbenchmark-dev libzxing-dev python3-fonttools zbar-tools \
            python3-dev pybind11-dev poppler-utils
FUZZ_PACKAGES := clang libclang-rt-dev
BENCH_PACKAGES := zint time
PACKAGE_PACKAGES := dpkg-dev file
# The Calc functions' test also needs Calc, LibreOffice's Python and the SDK's IDL compiler.
E2E_PACKAGES := libreoffice-writer libreoffice-calc libreoffice-l10n-it python3-uno libreoffice-dev poppler-utils fontconfig python3-fonttools
# Cross build for Windows run under Wine: no Qt, GoogleTest built from Debian's sources.
WINDOWS_PACKAGES := cmake make g++-mingw-w64-x86-64 wine wine64 googletest
PREFIX ?= /usr/local
# ccache, when present, makes rebuilds and the second (sanitizer) tree cheap; nothing needs it.
LAUNCHER := $(shell command -v ccache >/dev/null 2>&1 && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

.PHONY: all deps build run test test-asan test-e2e test-windows bench fuzz install package clean

all: build

# Installs only what is missing; a no-op when everything is there.
# $(call apt_install,PACKAGES,APT-OPTIONS)
define apt_install
missing=""; for p in $(1); do \
  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
done; \
if [ -n "$$missing" ]; then \
  echo "Installing:$$missing"; \
  SUDO=""; [ "$$(id -u)" -ne 0 ] && SUDO=sudo; \
  $$SUDO apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq $(2) $$missing; \
fi
endef

deps:
	@$(call apt_install,$(PACKAGES) $(EXTRA_PACKAGES))

build: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(LAUNCHER)
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/mainwindow/krt

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)
	$(MAKE) --no-print-directory test-asan

# Second pass of every test under AddressSanitizer + UndefinedBehaviorSanitizer.
test-asan: deps
	cmake -S . -B $(BUILD_ASAN) -DCMAKE_BUILD_TYPE=Debug $(LAUNCHER) -DKRT_SANITIZE=ON -DKRT_WITH_BENCH=OFF
	cmake --build $(BUILD_ASAN) -j $(JOBS)
	cd $(BUILD_ASAN) && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
	  ctest --output-on-failure -j $(JOBS)

# Scan test through LibreOffice: clipboard RTF -> PDF -> 300 dpi page -> barcode reader,
# with the reference test fonts in both character maps; and the Calc functions (krt.oxt in a
# headless Calc: CSV against krt-encode, PDF read back). Installs what it needs first.
test-e2e:
	$(MAKE) --no-print-directory deps EXTRA_PACKAGES="$(E2E_PACKAGES)"
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(LAUNCHER)
	cmake --build $(BUILD) -j $(JOBS) --target test_scansione krt_python krt_oxt test_fonts
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS) -R 'ScansioneLibreOffice|Calc\.|LibKrt\.Calc'

# The Qt-free libraries, krt-encode.exe and their unit tests cross-built for 64-bit Windows
# (cmake/mingw-w64-x86_64.cmake) and run under Wine, then krt-encode.exe end to end
# (tests/cli/windows_e2e.sh). Wine keeps its own prefix in the build tree.
WINE_ENV := WINEPREFIX=$(abspath $(BUILD_WINDOWS))/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
test-windows:
	@$(call apt_install,$(WINDOWS_PACKAGES),--no-install-recommends)
	cmake -S /usr/src/googletest -B $(BUILD_WINDOWS)/googletest -DCMAKE_BUILD_TYPE=Release $(LAUNCHER) \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw-w64-x86_64.cmake -DBUILD_GMOCK=OFF \
	  -DCMAKE_INSTALL_PREFIX=$(abspath $(BUILD_WINDOWS))/googletest-install
	cmake --build $(BUILD_WINDOWS)/googletest -j $(JOBS) --target install
	$(WINE_ENV) wineboot --init
	cmake -S . -B $(BUILD_WINDOWS) -DCMAKE_BUILD_TYPE=Release $(LAUNCHER) \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw-w64-x86_64.cmake -DCMAKE_CROSSCOMPILING_EMULATOR=wine \
	  -DKRT_WITH_GUI=OFF -DKRT_WITH_BENCH=OFF -DKRT_WITH_PYTHON=OFF \
	  -DGTest_DIR=$(abspath $(BUILD_WINDOWS))/googletest-install/lib/cmake/GTest
	$(WINE_ENV) cmake --build $(BUILD_WINDOWS) -j $(JOBS)
	cd $(BUILD_WINDOWS) && $(WINE_ENV) ctest --output-on-failure -j $(JOBS)
	$(WINE_ENV) wineserver -k || true

bench:
	$(MAKE) --no-print-directory build EXTRA_PACKAGES="$(BENCH_PACKAGES)"
	./$(BUILD)/bench/bench_engine
	./$(BUILD)/bench/bench_libkrt
	PYTHONPATH=$(BUILD)/libkrt/python python3 bench/libkrt/bench_python.py
	@if [ -x bench/batch.sh ]; then bench/batch.sh $(BUILD); fi

# Every libFuzzer target for FUZZ_SECONDS each, one after the other; each keeps its
# corpus in $(BUILD_FUZZ)/corpus/<target> and starts from the seeds in fuzz/corpus/<target>.
FUZZ_TARGETS := engine cli_righe cli_opzioni gs1 record csv
fuzz:
	$(MAKE) --no-print-directory deps EXTRA_PACKAGES="$(FUZZ_PACKAGES)"
	CXX=clang++ cmake -S . -B $(BUILD_FUZZ) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKRT_FUZZ=ON -DKRT_WITH_GUI=OFF -DKRT_WITH_BENCH=OFF
	cmake --build $(BUILD_FUZZ) -j $(JOBS) --target fuzz_all
	for t in $(FUZZ_TARGETS); do \
	  mkdir -p $(BUILD_FUZZ)/corpus/$$t fuzz/corpus/$$t; \
	  echo "== fuzz_$$t ($(FUZZ_SECONDS) s)"; \
	  ./$(BUILD_FUZZ)/fuzz/fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -timeout=5 -rss_limit_mb=1024 \
	    $(BUILD_FUZZ)/corpus/$$t fuzz/corpus/$$t; \
	done

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# Debian packages in the build folder, one per component: krt (the programs), libkrt1 (the shared
# library), libkrt-dev (header, static library, pkg-config, CMake package) and python3-krt;
# installed with apt-get install ./krt_*.deb ./libkrt1_*.deb ...
package:
	$(MAKE) --no-print-directory build EXTRA_PACKAGES="$(PACKAGE_PACKAGES)"
	cmake -S . -B $(BUILD) -DCMAKE_INSTALL_PREFIX=/usr
	cmake --build $(BUILD) -j $(JOBS)
	rm -f $(BUILD)/*.deb
	cd $(BUILD) && cpack -G DEB
	@ls -1 $(BUILD)/*.deb

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ) $(BUILD_WINDOWS)
