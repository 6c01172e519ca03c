#pragma once
// KelvoRuntime: the log and the tasks that run after the application has launched.

#include "runtime/auto_executor_mgr.h"
#include "runtime/log_output.h"
