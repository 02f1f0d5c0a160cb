# The commands of the README. Every target installs what is missing first.
BUILD        ?= build
FUZZ_BUILD   ?= build-fuzz
FUZZ_SECONDS ?= 60
JOBS         ?= $(shell nproc)

.PHONY: all deps build test run play bench fuzz format clean

all: build

deps:
	@scripts/install-deps

build: deps
	@cmake -S . -B $(BUILD) -G Ninja >/dev/null
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The editor on the bundled demo game, which Data/pname.dat names.
run: build
	@$(BUILD)/app/orrery-kit $(BUILD)/app "$$(tr -d '\r\n' < $(BUILD)/app/Data/pname.dat)"

# The run-time on the bundled demo game.
play: build
	@$(BUILD)/app/Data/runner

bench: build
	@for b in $(BUILD)/bench/*_bench; do echo "== $$b"; $$b --benchmark_counters_tabular=true || exit 1; done

# Each fuzz target for a bounded time, built with clang and the sanitizers. A target's own
# fuzzer flags stand in fuzz/<target>.options, one "flag = value" a line.
fuzz: deps
	@cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_CXX_COMPILER=clang++ -DORRERY_FUZZ=ON -DORRERY_TESTS=OFF -DORRERY_BENCH=OFF -DORRERY_GUI=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS)
	@for t in $(FUZZ_BUILD)/fuzz/fuzz_*; do \
	  name=$$(basename $$t); echo "== $$t"; mkdir -p $(FUZZ_BUILD)/corpus/$$name; \
	  flags=$$(sed -n 's/^ *\([a-z_]*\) *= *\([^ ]*\) *$$/-\1=\2/p' fuzz/$$name.options 2>/dev/null); \
	  $$t $$flags -max_total_time=$(FUZZ_SECONDS) -timeout=10 -rss_limit_mb=2048 \
	    $(FUZZ_BUILD)/corpus/$$name fuzz/corpus/$$name || exit 1; \
	done

format:
	@clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	@rm -rf $(BUILD) $(FUZZ_BUILD)
