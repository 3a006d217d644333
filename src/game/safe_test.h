#pragma once
class SafeTest
{
};
