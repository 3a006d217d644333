#pragma once
class SafeTest {};
