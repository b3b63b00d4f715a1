// QPdfDocument of Qt 6.4 keeps about two kilobytes of every document that it cannot load. Nothing outside can free
// them.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:QPdfDocumentPrivate::initiateAsyncLoadWithTotalSizeKnown\nleak:QPdfDocumentPrivate::tryLoadDocument\n";
}
