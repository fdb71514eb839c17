# The two commands of the README.
.PHONY: test demo package clean

test:
	@scripts/test.sh

demo:
	@scripts/demo.sh

# The SDK archives for Linux and Windows, in build/packages.
package:
	@scripts/package.sh

clean:
	rm -rf build
