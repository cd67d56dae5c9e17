# Entry points for a fresh Debian machine. Each one installs what is missing first.
BUILD   ?= build
JOBS    ?= $(shell nproc)
PREFIX  ?= /usr/local
DEMO_COMPANY ?= $(BUILD)/demo-company.qbw

.PHONY: all deps configure build test demo bench install clean

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_INSTALL_PREFIX=$(PREFIX) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

demo: build
	@[ -f $(DEMO_COMPANY) ] || $(BUILD)/cli/tessaron company create $(DEMO_COMPANY) --size 60
	@$(BUILD)/cli/tessaron demo --company $(DEMO_COMPANY)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

install: build
	@cmake --install $(BUILD)

clean:
	@rm -rf $(BUILD)
