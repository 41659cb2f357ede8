// A narrowing that the reports' own build refuses, and that a project around them may have.
short Narrow(long value) { return value; }
