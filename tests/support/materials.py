"""The materials that detail lines name in tests of many saves."""


def item_code(number):
    return f"I{number:03}"


def price_of(number):
    return 1 + number % 17


def add_materials(account, count):
    account.run_together(
        f"insert into inventory values ('{item_code(i)}', '材料{i}', '', {price_of(i)}.0000, '01',"
        " '01')" for i in range(count))
