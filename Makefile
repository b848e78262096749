# Two commands do everything on a fresh machine:
#   make run    build, then analyse the sample strategy under examples/ and print its listing
#   make test   build and run every test, once optimised and once under ASan + UBSan
JOBS     ?= $(shell nproc 2>/dev/null || echo 2)
BUILD    ?= build
ASAN     ?= build-asan
CMAKE_GEN = cmake -S . -DCMAKE_BUILD_TYPE=Release
PACKAGES  = g++ cmake flex bison libgtest-dev libbenchmark-dev make pkg-config nlohmann-json3-dev neovim
FUZZ_PACKAGES = clang libclang-rt-dev
FUZZ_SECONDS ?= 60
LSP_FUZZ_SECONDS ?= 20

VSCODE    = editors/vscode

.PHONY: all deps fuzz-deps node-deps vscode-deps install-packages build build-asan run test test-release test-asan bench fuzz vsix format clean

all: build

deps:
	@$(MAKE) --no-print-directory install-packages WANTED="$(PACKAGES)"

fuzz-deps: deps
	@$(MAKE) --no-print-directory install-packages WANTED="$(FUZZ_PACKAGES)"

# Node.js and npm for the VS Code extension: the distribution's packages,
# unless a node and an npm are already on PATH (a newer npm may be installed
# by other means, and Debian's npm package would conflict with it).
node-deps:
	@command -v node >/dev/null 2>&1 && command -v npm >/dev/null 2>&1 || \
	  $(MAKE) --no-print-directory install-packages WANTED="nodejs npm"

# The extension's npm packages, exactly as package-lock.json pins them;
# installed again only when the lock file changes.
vscode-deps: node-deps
	@if [ ! -f $(VSCODE)/node_modules/.package-lock.json ] || \
	    [ $(VSCODE)/package-lock.json -nt $(VSCODE)/node_modules/.package-lock.json ]; then \
	  cd $(VSCODE) && CI=true npm ci --no-audit --no-fund --loglevel=error; \
	fi

# Installs with apt-get whichever of WANTED is missing; does nothing when all are present.
install-packages:
	@missing=""; \
	for p in $(WANTED); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  echo "installing:$$missing"; \
	  SUDO=$$( [ "$$(id -u)" = 0 ] || echo sudo ); \
	  $$SUDO apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq $$missing; \
	fi

build: deps
	$(CMAKE_GEN) -B $(BUILD) >/dev/null
	cmake --build $(BUILD) -j $(JOBS)

build-asan: deps
	$(CMAKE_GEN) -B $(ASAN) -DSTRATAGEM_SANITIZE=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build $(ASAN) -j $(JOBS)

# The build's own output is kept back unless it fails, so that standard
# output holds the listing alone.
run:
	@log=$$(mktemp); \
	if ! $(MAKE) --no-print-directory build >$$log 2>&1; then cat $$log >&2; rm -f $$log; exit 1; fi; \
	rm -f $$log
	@$(BUILD)/stratagem --name "Sample" examples/main.per

test-release: build vscode-deps
	cd $(BUILD) && ctest -j $(JOBS) --output-on-failure

test-asan: build-asan vscode-deps
	cd $(ASAN) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest -j $(JOBS) --output-on-failure

test: test-release test-asan

bench: deps
	$(CMAKE_GEN) -B build-bench -DSTRATAGEM_BENCH=ON -DSTRATAGEM_TESTS=OFF >/dev/null
	cmake --build build-bench -j $(JOBS)
	build-bench/bench/stratagem_bench
	build-bench/bench/stratagem_lsp_bench

# Rewrites every C++ source in the house style (.clang-format).
format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

fuzz: fuzz-deps
	CC=clang CXX=clang++ cmake -S . -B build-fuzz -DSTRATAGEM_FUZZ=ON -DSTRATAGEM_TESTS=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build build-fuzz -j $(JOBS) --target stratagem_fuzz stratagem_lsp_fuzz
	mkdir -p fuzz-corpus fuzz-corpus-lsp
	build-fuzz/fuzz/stratagem_fuzz -max_total_time=$(FUZZ_SECONDS) -detect_leaks=1 fuzz-corpus fuzz/seeds
	build-fuzz/fuzz/stratagem_lsp_fuzz -max_total_time=$(LSP_FUZZ_SECONDS) -max_len=65536 -detect_leaks=1 fuzz-corpus-lsp fuzz/lsp-seeds

# The VS Code extension as $(VSCODE)/stratagem.vsix, with the grammar the
# build generates from the vocabulary.
vsix: build vscode-deps
	sh $(VSCODE)/package-vsix.sh $(BUILD)/editors/stratagem.tmLanguage.json $(VSCODE)/stratagem.vsix

clean:
	rm -rf $(BUILD) $(ASAN) build-bench build-fuzz $(VSCODE)/stratagem.vsix
