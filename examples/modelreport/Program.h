// The program modelreport as a function.
#pragma once

// Reads the model that the arguments name, prints what it consists of, writes its report.
// Answers the exit code: 0 done, 1 wrong usage, 2 the model cannot be read, 3 the report cannot be written.
int RunModelReport(int argc, char** argv);
