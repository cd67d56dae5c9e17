# Entry points for a fresh Debian machine. Each one installs what is missing first.
BUILD   ?= build
JOBS    ?= $(shell nproc)
PREFIX  ?= /usr/local
DEMO_COMPANY ?= $(BUILD)/demo-company.qbw

# Compiler flags for the build type of `make build` and `make test` (empty: CMake's own,
# -O2 -g). The CI passes cheaper ones: it wants every test run, not a debuggable build.
OPT_FLAGS ?=
SANITIZE_BUILD ?= build-sanitize
FUZZ_BUILD ?= build-fuzz
SECONDS ?= 60
FUZZ_TARGETS = values list_response invoice_response report_result company_record event processor_request

.PHONY: all deps configure build test test-sanitize fuzz demo bench install clean

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_INSTALL_PREFIX=$(PREFIX) \
		$(if $(OPT_FLAGS),"-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=$(OPT_FLAGS)") >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# Every test on a build with AddressSanitizer and UndefinedBehaviorSanitizer, in a build
# folder of its own; any report fails the test that caused it. Built to be cheap: no
# optimisation (instrumented code takes twice as long to compile at -O1), line tables only (enough for the reports), and only the
# test programs and what they need; the examples are tested by `make test`. Precompiled
# headers do not pay here: the instrumented code generation, not the parsing, is the cost.
# (Not a unity build: sources share names of file-local helpers, which one translation
# unit cannot hold, and new sources arrive all the time.)
test-sanitize: deps
	@cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O0 -g1" \
		-DTESSARON_PCH=OFF -DTESSARON_SANITIZE=ON -DTESSARON_BUILD_BENCH=OFF -DTESSARON_TEST_EXAMPLES=OFF >/dev/null
	@cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	@cd $(SANITIZE_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
		ctest --output-on-failure -j $(JOBS)

# Each libFuzzer target for SECONDS seconds, from the seeds in fuzz/corpus/ (what it
# finds new is kept in $(FUZZ_BUILD)/corpus/). A crash, leak, hang or sanitizer report
# stops the run; its input is left as $(FUZZ_BUILD)/<target>-crash-... to replay.
fuzz: deps
	@cmake -S . -B $(FUZZ_BUILD) -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTESSARON_FUZZ=ON \
		-DTESSARON_PCH=OFF -DTESSARON_BUILD_TESTS=OFF -DTESSARON_BUILD_BENCH=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@for t in $(FUZZ_TARGETS); do \
		mkdir -p $(FUZZ_BUILD)/corpus/$$t; \
		echo "fuzz_$$t: $(SECONDS) s"; \
		$(FUZZ_BUILD)/fuzz/fuzz_$$t $(FUZZ_BUILD)/corpus/$$t fuzz/corpus/$$t -max_total_time=$(SECONDS) \
			-timeout=10 -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix=$(FUZZ_BUILD)/$$t- || exit 1; \
	done

demo: build
	@[ -f $(DEMO_COMPANY) ] || $(BUILD)/cli/tessaron company create $(DEMO_COMPANY) --size 60
	@$(BUILD)/cli/tessaron demo --company $(DEMO_COMPANY)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

install: build
	@cmake --install $(BUILD)

clean:
	@rm -rf $(BUILD)
