# The two commands of the README.
.PHONY: test demo clean

test:
	@scripts/test.sh

demo:
	@scripts/demo.sh

clean:
	rm -rf build
