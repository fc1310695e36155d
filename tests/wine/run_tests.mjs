// The tests of the stand-in WebView2 runtime: real windows, real input, a real browser.
//   node run_tests.mjs [WORD]     only the tests whose names contain the word
import { runTests } from './lib/harness.mjs';

import './cases/page_cases.mjs';
import './cases/mouse_cases.mjs';
import './cases/keyboard_cases.mjs';
import './cases/scale_cases.mjs';
import './cases/presence_cases.mjs';
import './cases/recorder_cases.mjs';
import './cases/process_cases.mjs';
import './cases/ending_cases.mjs';

process.exit((await runTests(process.argv[2])) > 0 ? 1 : 0);
