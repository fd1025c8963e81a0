-- A row is created by "insert into orders values(default)": the key is the first column, and every other column has
-- a default or may be null.
create table orders (
    id serial primary key,
    opened timestamp with time zone not null default now(),
    guests integer
);

create sequence receiptnumber;
