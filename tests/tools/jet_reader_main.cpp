// The reader of Jet files as a program of its own, so that tests need not start the whole one.
#include "tools/jet_reader.h"

int main(int argc, char** argv) {
  return tess::asksForJetReader(argc, argv) ? tess::runJetReader() : 2;
}
